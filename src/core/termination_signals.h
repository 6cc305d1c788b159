#pragma once

#include <QObject>

#include <functional>
#include <memory>

class QSocketNotifier;

namespace zeigewerk {

/// Turns SIGTERM, SIGINT and SIGHUP into a call from the event loop, where everything is allowed.
class TerminationSignals
{
public:
    /// Keeps the signals from ending the process at once. To be called before there are other threads, which
    /// inherit it; a thread that did not would still be ended by them. SIGPIPE does nothing from then on:
    /// that a display or a bus is gone is found by reading, too, and is then said before the process ends.
    static void hold();
    /// Has them end a child process again, which would inherit that; for use between fork and exec. SIGPIPE
    /// is given back by QProcess.
    static void release();

    /// Calls `handler` for each signal held. There can be one at a time. Needs the application object.
    explicit TerminationSignals(std::function<void()> handler);
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals &) = delete;
    TerminationSignals &operator=(const TerminationSignals &) = delete;

private:
    int m_descriptor;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace zeigewerk
