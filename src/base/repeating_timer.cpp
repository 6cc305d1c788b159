#include "base/repeating_timer.h"

#include <utility>

namespace zeigewerk {

using std::chrono::steady_clock;

steady_clock::time_point nextDeadline(steady_clock::time_point start, std::chrono::nanoseconds interval,
                                      steady_clock::time_point now)
{
    if (now < start)
        return start + interval;
    const auto passed = (now - start) / interval;
    return start + (passed + 1) * interval;
}

RepeatingTimer::RepeatingTimer(std::chrono::nanoseconds interval, std::function<void()> tick)
    : m_start(steady_clock::now())
    , m_interval(interval)
    , m_tick(std::move(tick))
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.callOnTimeout([this] {
        arm();
        // The tick may destroy this timer, so a copy is called and no member used afterwards.
        const auto tickNow = m_tick;
        tickNow();
    });
    arm();
}

void RepeatingTimer::arm()
{
    const auto now = steady_clock::now();
    const auto wait =
        std::chrono::ceil<std::chrono::milliseconds>(nextDeadline(m_start, m_interval, now) - now);
    m_timer.start(wait);
}

} // namespace zeigewerk
