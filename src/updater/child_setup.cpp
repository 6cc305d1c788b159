#include "updater/child_setup.h"

#include "base/termination_signals.h"

#include <QFile>
#include <QProcess>

#include <signal.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace zeigewerk {

QProcessEnvironment environmentAtStart()
{
    // The kernel shows the environment that the process was given; later changes are stored elsewhere.
    QFile file(QStringLiteral("/proc/self/environ"));
    if (!file.open(QFile::ReadOnly))
        return QProcessEnvironment::systemEnvironment();
    QProcessEnvironment environment;
    for (const QByteArray &variable : file.readAll().split('\0')) {
        if (const auto equals = variable.indexOf('='); equals > 0)
            environment.insert(QString::fromLocal8Bit(variable.first(equals)),
                               QString::fromLocal8Bit(variable.sliced(equals + 1)));
    }
    // These were for our own first window.
    environment.remove(QStringLiteral("DESKTOP_STARTUP_ID"));
    environment.remove(QStringLiteral("XDG_ACTIVATION_TOKEN"));
    return environment;
}

// The modifiers run between fork and exec: system calls only.

void bindToThisProcess(QProcess &process)
{
    process.setProcessEnvironment(environmentAtStart());
    process.setChildProcessModifier([parent = getpid()] {
        TerminationSignals::release();
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (getppid() != parent)
            _exit(1);
    });
}

bool startDetached(QProcess &process)
{
    process.setProcessEnvironment(environmentAtStart());
    // QProcess::startDetached would not run the modifier.
    process.setChildProcessModifier([] {
        TerminationSignals::release();
        setsid();
        // The child exits at once. The program runs in the child's own child, and we need not wait for that.
        const pid_t child = fork();
        if (child != 0)
            _exit(child > 0 ? 0 : 1);
    });
    process.start();
    return process.waitForStarted() && process.waitForFinished() && process.exitCode() == 0;
}

} // namespace zeigewerk
