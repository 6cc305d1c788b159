#include "base/termination_signals.h"

#include "base/stop.h"

#include <QSocketNotifier>

#include <signal.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <utility>

namespace zeigewerk {

namespace {

sigset_t terminationSignals()
{
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        sigaddset(&signals, signal);
    return signals;
}

} // namespace

void TerminationSignals::hold()
{
    const sigset_t signals = terminationSignals();
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    signal(SIGPIPE, SIG_IGN);
}

void TerminationSignals::release()
{
    const sigset_t signals = terminationSignals();
    pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
}

TerminationSignals::TerminationSignals(std::function<void()> handler)
{
    const sigset_t signals = terminationSignals();
    m_descriptor = signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK);
    mustHold(m_descriptor >= 0, "no descriptor for signals");
    m_notifier = std::make_unique<QSocketNotifier>(m_descriptor, QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated,
                     [descriptor = m_descriptor, handler = std::move(handler)] {
                         signalfd_siginfo info;
                         if (read(descriptor, &info, sizeof info) == sizeof info)
                             handler();
                     });
}

TerminationSignals::~TerminationSignals()
{
    m_notifier.reset();
    close(m_descriptor);
}

} // namespace zeigewerk
