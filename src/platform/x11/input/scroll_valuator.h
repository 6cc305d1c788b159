#pragma once

#include "platform/events.h"

#include <optional>

namespace zeigewerk::platform::x11 {

/// The vertical scroll axis of one device. It reports absolute values; a step is the difference of two.
class ScrollValuator
{
public:
    /// `increment` is the change of the value per notch, positive if the value grows downwards; an axis with
    /// 0 or NaN never scrolls. `value` is the present value, if known.
    explicit ScrollValuator(double increment, std::optional<double> value = std::nullopt);

    /// Returns the step from the previous value, upwards positive: in notches if it is a whole number of
    /// them, as from a wheel, else in points. None if nothing has changed or there is no previous value.
    std::optional<ScrollEvent> moveTo(double value);

private:
    double m_increment;
    std::optional<double> m_value;
};

} // namespace zeigewerk::platform::x11
