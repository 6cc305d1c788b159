#pragma once

#include <chrono>
#include <functional>

namespace zeigewerk {

/// Wall-clock time, so that a drawing ages while the machine is suspended, too.
using WallClock = std::chrono::system_clock;
using TimePoint = WallClock::time_point;

/// Returns the current time. Tests pass a clock that stands still.
using Clock = std::function<TimePoint()>;

} // namespace zeigewerk
