#include "updater/child_setup.h"

#include "core/termination_signals.h"

#include <QFile>
#include <QProcess>

#include <signal.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace zeigewerk {

QProcessEnvironment environmentAtStart()
{
    // The kernel shows the block that the process was given; what is set later is kept elsewhere.
    QFile file(QStringLiteral("/proc/self/environ"));
    if (!file.open(QFile::ReadOnly))
        return QProcessEnvironment::systemEnvironment();
    QProcessEnvironment environment;
    for (const QByteArray &variable : file.readAll().split('\0')) {
        if (const auto equals = variable.indexOf('='); equals > 0)
            environment.insert(QString::fromLocal8Bit(variable.first(equals)),
                               QString::fromLocal8Bit(variable.sliced(equals + 1)));
    }
    // They were for our own first window.
    environment.remove(QStringLiteral("DESKTOP_STARTUP_ID"));
    environment.remove(QStringLiteral("XDG_ACTIVATION_TOKEN"));
    return environment;
}

// The modifiers run between fork and exec: system calls only.

void bindToUs(QProcess &process)
{
    process.setProcessEnvironment(environmentAtStart());
    process.setChildProcessModifier([parent = getpid()] {
        TerminationSignals::release();
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (getppid() != parent)
            _exit(1);
    });
}

bool startOnItsOwn(QProcess &process)
{
    process.setProcessEnvironment(environmentAtStart());
    // What Qt itself starts detached, it starts without the modifier.
    process.setChildProcessModifier([] {
        TerminationSignals::release();
        setsid();
        // The child goes at once, and what it was to be is its own child, which nobody has to wait for.
        const pid_t child = fork();
        if (child != 0)
            _exit(child > 0 ? 0 : 1);
    });
    process.start();
    return process.waitForStarted() && process.waitForFinished() && process.exitCode() == 0;
}

} // namespace zeigewerk
