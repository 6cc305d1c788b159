#include "platform/x11/input/scroll_valuator.h"

#include <cmath>
#include <utility>

namespace zeigewerk::platform::x11 {

namespace {

/// libinput reports two-finger scrolling in the unit of pointer motion, and counts 15 of it as a notch: a
/// usual wheel turns 15 degrees per notch. Drivers with another increment scale by it.
constexpr double kPointsPerNotch = 15.0;

/// Values are sums of many steps in fixed point with 32 fractional bits. A finger's step is larger than this.
constexpr double kMaxRoundingError = 1e-4;

} // namespace

ScrollValuator::ScrollValuator(double increment, std::optional<double> value)
    : m_increment(increment)
    , m_value(value)
{
}

std::optional<ScrollEvent> ScrollValuator::moveTo(double value)
{
    const std::optional<double> previous = std::exchange(m_value, value);
    if (!previous)
        return std::nullopt;
    const double notches = -(value - *previous) / m_increment;
    if (!std::isfinite(notches) || std::abs(notches) < kMaxRoundingError)
        return std::nullopt;
    const double wholeNotches = std::round(notches);
    if (std::abs(notches - wholeNotches) < kMaxRoundingError)
        return ScrollEvent{.distance = wholeNotches, .isPrecise = false, .modifiers = {}};
    return ScrollEvent{.distance = notches * kPointsPerNotch, .isPrecise = true, .modifiers = {}};
}

} // namespace zeigewerk::platform::x11
