// A process of the rig that never outlives it.
#pragma once

#include <QProcess>
#include <QString>

#include <chrono>

namespace zeigewerk::rig {

/// Starts a program and ends it with the object. If the test process dies without ending it, the kernel does.
class ChildProcess
{
public:
    struct Command
    {
        QString program;
        QStringList arguments = {};
        QProcessEnvironment environment;
        /// Where the outputs go; empty: read both as one through process().
        QString logPath = {};
        /// Only the error output goes to the log; read the standard output through process().
        bool separateOutput = false;
        /// It reads what is written through process().
        bool readsInput = false;
    };

    /// Throws RigError if the program cannot be started.
    explicit ChildProcess(const Command &command);
    ~ChildProcess();
    ChildProcess(const ChildProcess &) = delete;
    ChildProcess &operator=(const ChildProcess &) = delete;

    QProcess &process() { return m_process; }
    qint64 processId() const { return m_processId; }
    bool isRunning() const { return m_process.state() != QProcess::NotRunning; }

    /// SIGTERM, and SIGKILL if it still lives after the deadline. True if it went by itself or by SIGTERM.
    bool end(std::chrono::milliseconds deadline = std::chrono::seconds(3));

private:
    QProcess m_process;
    qint64 m_processId = 0;
};

} // namespace zeigewerk::rig
