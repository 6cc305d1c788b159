// Stops a process for a while.
#pragma once

#include <QtGlobal>

#include <chrono>
#include <condition_variable>
#include <csignal>
#include <mutex>
#include <thread>

namespace zeigewerk::rig {

/// The process is stopped while this lives, and afterwards finds everything that happened meanwhile at once.
/// It continues after two seconds in any case: a process that was stopped while it had grabbed the X server
/// would block everybody, including this test.
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
