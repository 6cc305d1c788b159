// A process that never outlives the rig.
#pragma once

#include <QProcess>
#include <QString>

#include <chrono>

namespace zeigewerk::rig {

/// Starts a program and ends it with the object. If the test process dies first, the kernel ends it.
class ChildProcess
{
public:
    struct Command
    {
        QString program;
        QStringList arguments = {};
        QProcessEnvironment environment;
        /// Where the output goes. If empty, both streams can be read through process() as one.
        QString logPath = {};
        /// Only standard error goes to the log; standard output can be read through process().
        bool separateOutput = false;
        /// Standard input can be written through process().
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

    /// Sends SIGTERM, and SIGKILL if the process still runs after the deadline. True if SIGKILL was not
    /// needed.
    bool end(std::chrono::milliseconds deadline = std::chrono::seconds(3));

private:
    QProcess m_process;
    qint64 m_processId = 0;
};

} // namespace zeigewerk::rig
