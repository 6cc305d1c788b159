// The program under test, as built, running on a session.
#pragma once

#include "child_process.h"

#include <QMap>
#include <QString>

#include <chrono>
#include <optional>

namespace zeigewerk::rig {

class DesktopSession;

/// Started as a user starts it; nothing in it knows that it is tested. Which binary that is, the build says;
/// the environment variable ZEIGEWERK_BINARY overrides it. What it wrote is put on the test log if the test
/// fails.
class Program
{
public:
    /// Where the program is that is tested. Throws RigError if it is not there.
    static QString binary();

    /// Throws RigError if there is no such binary.
    explicit Program(DesktopSession &session, const QMap<QString, QString> &environment = {},
                     const QStringList &arguments = {});
    /// Ends the program.
    ~Program();

    /// True once its last hot key, Ctrl+Alt+P, is taken: it then answers to all of them. False if it ended or
    /// was not ready within the deadline.
    bool waitUntilReady(std::chrono::milliseconds deadline = std::chrono::seconds(10));
    bool isRunning() const { return m_child.isRunning(); }
    qint64 processId() const { return m_child.processId(); }

    /// Asks it to end (SIGTERM) and waits. Its exit code, or nothing if a signal ended it or it stayed.
    std::optional<int> terminate(std::chrono::milliseconds deadline = std::chrono::seconds(5));
    /// Waits for it to end by itself. Its exit code, or nothing if a signal ended it or it stayed; which of
    /// them is printed.
    std::optional<int> waitForExit(std::chrono::milliseconds deadline = std::chrono::seconds(5));

    /// Everything that it wrote so far, both outputs as one.
    QByteArray output();
    /// Processor time since its start, all threads.
    std::chrono::nanoseconds cpuTime() const;
    /// Resident memory in bytes.
    qint64 residentBytes() const;

private:
    DesktopSession &m_session;
    ChildProcess m_child;
    QByteArray m_output;
};

} // namespace zeigewerk::rig
