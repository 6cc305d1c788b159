#pragma once

#include "platform/events.h"

#include <optional>

namespace zeigewerk::platform::x11 {

/// The vertical scroll axis of one device: it delivers an absolute value, which only ever means something
/// beside the one before.
class ScrollValuator
{
public:
    /// `increment` is how far the value moves by a notch, positive if it grows downwards; 0 or no number
    /// never scrolls. `value` is where the axis stands, if that is known.
    explicit ScrollValuator(double increment, std::optional<double> value = std::nullopt);

    /// The axis stands there now. Returns the way from where it stood, upwards positive: in notches when it
    /// is a whole number of them, which is what a wheel makes, else in points. None for no way, or when it is
    /// not known where it stood.
    std::optional<ScrollEvent> moveTo(double value);

private:
    double m_increment;
    std::optional<double> m_value;
};

} // namespace zeigewerk::platform::x11
