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
        m_watchdog = std::thread([this] { resumeAfterTimeout(); });
    }
    ~PausedProcess()
    {
        {
            const std::lock_guard lock(m_mutex);
            m_isResumed = true;
        }
        m_resumed.notify_one();
        m_watchdog.join();
    }
    PausedProcess(const PausedProcess &) = delete;
    PausedProcess &operator=(const PausedProcess &) = delete;

private:
    void resumeAfterTimeout()
    {
        std::unique_lock lock(m_mutex);
        m_resumed.wait_for(lock, std::chrono::seconds(2), [this] { return m_isResumed; });
        kill(m_process, SIGCONT);
    }

    pid_t m_process;
    bool m_isResumed = false;
    std::mutex m_mutex;
    std::condition_variable m_resumed;
    std::thread m_watchdog;
};

} // namespace zeigewerk::rig
