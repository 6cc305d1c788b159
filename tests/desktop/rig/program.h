// The built program under test, running in a session.
#pragma once

#include "child_process.h"

#include <QMap>
#include <QString>

#include <chrono>
#include <optional>

namespace zeigewerk::rig {

class DesktopSession;

/// Started as a user starts it; it does not know that it is tested. The build defines which binary that is;
/// the environment variable ZEIGEWERK_BINARY overrides it. If the test fails, the program's output is logged.
class Program
{
public:
    /// The path of the program under test. Throws RigError if it does not exist.
    static QString binary();

    /// Throws RigError if there is no such program.
    explicit Program(DesktopSession &session, const QMap<QString, QString> &environment = {},
                     const QStringList &arguments = {});
    /// Ends the program.
    ~Program();

    /// True once its last hot key, Ctrl+Alt+P, is grabbed: then all of them work. False if it exits or is not
    /// ready within the deadline.
    bool waitUntilReady(std::chrono::milliseconds deadline = std::chrono::seconds(10));
    bool isRunning() const { return m_child.isRunning(); }
    qint64 processId() const { return m_child.processId(); }

    /// Sends SIGTERM and waits. Returns the exit code; nothing if a signal ended the program or it did not
    /// end.
    std::optional<int> terminate(std::chrono::milliseconds deadline = std::chrono::seconds(5));
    /// Waits until it ends by itself. Returns the exit code; nothing if a signal ended it or it did not end,
    /// and prints which.
    std::optional<int> waitForExit(std::chrono::milliseconds deadline = std::chrono::seconds(5));

    /// Everything it has written so far, standard output and standard error together.
    QByteArray output();
    /// Processor time of all threads since its start.
    std::chrono::nanoseconds cpuTime() const;
    /// Resident memory in bytes.
    qint64 residentBytes() const;

private:
    DesktopSession &m_session;
    ChildProcess m_child;
    QByteArray m_output;
};

} // namespace zeigewerk::rig
