// A process that has no time.
#pragma once

#include <QtGlobal>

#include <chrono>
#include <condition_variable>
#include <csignal>
#include <mutex>
#include <thread>

namespace zeigewerk::rig {

/// While this lives the process is stopped, and reads nothing: afterwards it finds all at once that was done
/// meanwhile. It goes on after two seconds in any case: one that was stopped while it had the X server to
/// itself would keep everybody waiting, whoever is to end this among them.
class PausedProcess
{
public:
    explicit PausedProcess(qint64 processId)
        : m_process(static_cast<pid_t>(processId))
    {
        kill(m_process, SIGSTOP);
        m_end = std::thread([this] { endInAnyCase(); });
    }
    ~PausedProcess()
    {
        {
            const std::lock_guard lock(m_mutex);
            m_isOver = true;
        }
        m_over.notify_one();
        m_end.join();
    }
    PausedProcess(const PausedProcess &) = delete;
    PausedProcess &operator=(const PausedProcess &) = delete;

private:
    void endInAnyCase()
    {
        std::unique_lock lock(m_mutex);
        m_over.wait_for(lock, std::chrono::seconds(2), [this] { return m_isOver; });
        kill(m_process, SIGCONT);
    }

    pid_t m_process;
    bool m_isOver = false;
    std::mutex m_mutex;
    std::condition_variable m_over;
    std::thread m_end;
};

} // namespace zeigewerk::rig
