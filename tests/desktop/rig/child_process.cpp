#include "child_process.h"

#include "rig_error.h"

#include <sys/prctl.h>
#include <unistd.h>

#include <csignal>

namespace zeigewerk::rig {

ChildProcess::ChildProcess(const Command &command)
{
    m_process.setProgram(command.program);
    m_process.setArguments(command.arguments);
    m_process.setProcessEnvironment(command.environment);
    if (!command.readsInput)
        m_process.setStandardInputFile(QProcess::nullDevice());
    if (command.separateOutput)
        m_process.setStandardErrorFile(command.logPath);
    else
        m_process.setProcessChannelMode(QProcess::MergedChannels);
    if (!command.separateOutput && !command.logPath.isEmpty())
        m_process.setStandardOutputFile(command.logPath);
    // Runs between fork and exec, so only system calls are allowed. SIGTERM rather than SIGKILL, because a
    // killed X server leaves its socket behind. All other children end when they lose the display.
    m_process.setChildProcessModifier([parent = getpid()] {
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        if (getppid() != parent)
            _exit(1);
    });
    m_process.start();
    if (!m_process.waitForStarted())
        failRig(QStringLiteral("%1: %2").arg(command.program, m_process.errorString()));
    m_processId = m_process.processId();
}

ChildProcess::~ChildProcess()
{
    end();
}

bool ChildProcess::end(std::chrono::milliseconds deadline)
{
    if (!isRunning())
        return true;
    m_process.terminate();
    if (m_process.waitForFinished(static_cast<int>(deadline.count())))
        return true;
    m_process.kill();
    m_process.waitForFinished();
    return false;
}

} // namespace zeigewerk::rig
