#pragma once

#include "platform/x11/input/scroll_valuator.h"

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

namespace zeigewerk::platform::x11 {

/// The vertical scroll axis of a device, as the server describes it.
struct ScrollAxis
{
    std::uint16_t device = 0;
    std::uint16_t number = 0;
    double increment = 0.0;
    double value = 0.0;
};

/// What one listener knows of the scroll axes. Each listener needs its own: a step is the difference from the
/// last value that the listener has seen.
class ScrollAxes
{
public:
    /// The devices have changed: the axes must be read again before they are used.
    void invalidate() { m_isStale = true; }
    bool isStale() const { return m_isStale; }
    /// Replaces everything by the server's answer to a request with that sequence number.
    void adopt(const std::vector<ScrollAxis> &axes, std::uint32_t sequence);

    /// Whether the answer already includes what an event with that sequence number says. Sequence numbers
    /// wrap around.
    bool includes(std::uint32_t sequence) const;
    /// The number of the device's axis; none if it has no axis.
    std::optional<std::uint16_t> numberOf(std::uint16_t device) const;
    /// Returns the step to the new value; none if the value has not changed or the device has no axis.
    std::optional<ScrollEvent> moveTo(std::uint16_t device, double value);

private:
    struct Axis
    {
        std::uint16_t number = 0;
        ScrollValuator valuator;
    };

    std::map<std::uint16_t, Axis> m_axes;
    bool m_isStale = true;
    std::uint32_t m_sequence = 0;
};

} // namespace zeigewerk::platform::x11
