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
    /// inherit it; a thread that did not would still be ended by them.
    static void hold();

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
