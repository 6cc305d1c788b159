#include "platform/x11/input/scroll_axes.h"

namespace zeigewerk::platform::x11 {

void ScrollAxes::adopt(const std::vector<ScrollAxis> &axes, std::uint32_t sequence)
{
    m_axes.clear();
    for (const ScrollAxis &axis : axes)
        m_axes.insert_or_assign(axis.device, Axis{axis.number, ScrollValuator(axis.increment, axis.value)});
    m_isStale = false;
    m_sequence = sequence;
}

bool ScrollAxes::includes(std::uint32_t sequence) const
{
    // An event has the number of the last request that the server had handled before it.
    return static_cast<std::int32_t>(sequence - m_sequence) < 0;
}

std::optional<std::uint16_t> ScrollAxes::numberOf(std::uint16_t device) const
{
    const auto found = m_axes.find(device);
    return found == m_axes.end() ? std::nullopt : std::optional(found->second.number);
}

std::optional<ScrollEvent> ScrollAxes::moveTo(std::uint16_t device, double value)
{
    const auto found = m_axes.find(device);
    return found == m_axes.end() ? std::nullopt : found->second.valuator.moveTo(value);
}

} // namespace zeigewerk::platform::x11
