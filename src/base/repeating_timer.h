#pragma once

#include <QTimer>

#include <chrono>
#include <functional>

namespace zeigewerk {

/// The first deadline of the series `start + n * interval` (n >= 1) after `now`: deadlines that have passed
/// are skipped, not caught up on.
std::chrono::steady_clock::time_point nextDeadline(std::chrono::steady_clock::time_point start,
                                                   std::chrono::nanoseconds interval,
                                                   std::chrono::steady_clock::time_point now);

/// Calls its tick from the event loop at each interval, for as long as it lives. Ticks follow absolute
/// deadlines, so an interval that is not a whole number of milliseconds has the right mean (16 and 17 ms for
/// 1/60 s).
class RepeatingTimer
{
public:
    RepeatingTimer(std::chrono::nanoseconds interval, std::function<void()> tick);

private:
    void arm();

    std::chrono::steady_clock::time_point m_start;
    std::chrono::nanoseconds m_interval;
    std::function<void()> m_tick;
    QTimer m_timer;
};

} // namespace zeigewerk
