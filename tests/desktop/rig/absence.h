// A process that has no time.
#pragma once

#include <QtGlobal>

#include <csignal>

namespace zeigewerk::rig {

/// While this lives the process is stopped, and reads nothing: afterwards it finds all at once that was done
/// meanwhile.
class Absence
{
public:
    explicit Absence(qint64 processId)
        : m_process(static_cast<pid_t>(processId))
    {
        kill(m_process, SIGSTOP);
    }
    ~Absence() { kill(m_process, SIGCONT); }
    Absence(const Absence &) = delete;
    Absence &operator=(const Absence &) = delete;

private:
    pid_t m_process;
};

} // namespace zeigewerk::rig
