#pragma once

#include <chrono>
#include <functional>

namespace zeigewerk {

/// Wall-clock time: a drawing fades by its age, which counts while the machine is suspended, too.
using WallClock = std::chrono::system_clock;
using TimePoint = WallClock::time_point;

/// Tells the time; a test passes one that stands still.
using Clock = std::function<TimePoint()>;

} // namespace zeigewerk
