#pragma once

#include <QObject>

#include <functional>
#include <memory>

class QSocketNotifier;

namespace zeigewerk {

/// Turns SIGTERM, SIGINT and SIGHUP into a call from the event loop, where any code may run.
class TerminationSignals
{
public:
    /// Blocks the signals, so that they do not end the process at once. Call it before there are other
    /// threads: they inherit it, and a thread without it would still be ended by a signal. Also ignores
    /// SIGPIPE: a lost display or bus is noticed when reading, too, and is reported before the process ends.
    static void hold();
    /// Unblocks the signals in a child process, which inherits the block; for use between fork and exec.
    /// QProcess itself restores SIGPIPE.
    static void release();

    /// Calls `handler` for each blocked signal. Only one object may exist at a time. Needs the application
    /// object.
    explicit TerminationSignals(std::function<void()> handler);
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals &) = delete;
    TerminationSignals &operator=(const TerminationSignals &) = delete;

private:
    int m_descriptor;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace zeigewerk
