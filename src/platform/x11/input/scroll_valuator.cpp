#include "platform/x11/input/scroll_valuator.h"

#include <cmath>
#include <utility>

namespace zeigewerk::platform::x11 {

namespace {

/// libinput reports two fingers in the unit of pointer motion and takes 15 of it for one notch, after the 15
/// degrees by which the usual wheel turns; so does a driver that scales them to another increment.
constexpr double kPointsPerNotch = 15.0;

/// The values are sums of many steps in fixed point with 32 bits behind the point; a finger's step is
/// coarser.
constexpr double kRounding = 1e-4;

} // namespace

ScrollValuator::ScrollValuator(double increment, std::optional<double> value)
    : m_increment(increment)
    , m_value(value)
{
}

std::optional<ScrollEvent> ScrollValuator::moveTo(double value)
{
    const std::optional<double> before = std::exchange(m_value, value);
    if (!before)
        return std::nullopt;
    const double notches = -(value - *before) / m_increment;
    if (!std::isfinite(notches) || std::abs(notches) < kRounding)
        return std::nullopt;
    const double wholeNotches = std::round(notches);
    if (std::abs(notches - wholeNotches) < kRounding)
        return ScrollEvent{.distance = wholeNotches, .isPrecise = false, .modifiers = {}};
    return ScrollEvent{.distance = notches * kPointsPerNotch, .isPrecise = true, .modifiers = {}};
}

} // namespace zeigewerk::platform::x11
