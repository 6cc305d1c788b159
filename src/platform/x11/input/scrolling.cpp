#include "platform/x11/input/scrolling.h"

#include "platform/x11/input/event_mask.h"

#include <array>

namespace zeigewerk::platform::x11 {

namespace {

constexpr std::uint32_t kWheelUp = 4;
constexpr std::uint32_t kWheelDown = 5;

/// X Input's 32.32 fixed point.
double fromFixed(const xcb_input_fp3232_t &value)
{
    return value.integral + value.frac / 4294967296.0;
}

/// Words of 32 bits, the lowest first.
bool isSet(const std::uint32_t *mask, std::uint16_t words, std::uint16_t bit)
{
    return bit / 32U < words && (mask[bit / 32U] >> (bit % 32U) & 1U) != 0;
}

/// What the event says of that axis; none if the axis did not move.
std::optional<double> valueOf(const xcb_input_button_press_event_t &event, std::uint16_t axis)
{
    const std::uint32_t *mask = xcb_input_button_press_valuator_mask(&event);
    if (!isSet(mask, event.valuators_len, axis))
        return std::nullopt;
    // There is a value for each bit that is set, in their order.
    const xcb_input_fp3232_t *value = xcb_input_button_press_axisvalues(&event);
    for (std::uint16_t lower = 0; lower < axis; ++lower) {
        if (isSet(mask, event.valuators_len, lower))
            ++value;
    }
    return fromFixed(*value);
}

bool mentions(const xcb_input_raw_motion_event_t &event, std::uint16_t axis)
{
    return isSet(xcb_input_raw_button_press_valuator_mask(&event), event.valuators_len, axis);
}

bool isVerticalAxis(const xcb_input_scroll_class_t &scroll)
{
    return scroll.type == XCB_INPUT_DEVICE_CLASS_TYPE_SCROLL &&
           scroll.scroll_type == XCB_INPUT_SCROLL_TYPE_VERTICAL;
}

/// A device's vertical scroll axis as the server describes it.
struct AxisInfo
{
    std::uint16_t number = 0;
    double increment = 0.0;
    double value = 0.0;
};

std::optional<AxisInfo> verticalAxisOf(const xcb_input_xi_device_info_t &device)
{
    std::map<std::uint16_t, double> values;
    const xcb_input_scroll_class_t *vertical = nullptr;
    for (auto it = xcb_input_xi_device_info_classes_iterator(&device); it.rem;
         xcb_input_device_class_next(&it)) {
        const auto &valuator = reinterpret_cast<const xcb_input_valuator_class_t &>(*it.data);
        const auto &scroll = reinterpret_cast<const xcb_input_scroll_class_t &>(*it.data);
        if (valuator.type == XCB_INPUT_DEVICE_CLASS_TYPE_VALUATOR)
            values[valuator.number] = fromFixed(valuator.value);
        else if (isVerticalAxis(scroll))
            vertical = &scroll;
    }
    if (!vertical)
        return std::nullopt;
    return AxisInfo{.number = vertical->number,
                    .increment = fromFixed(vertical->increment),
                    .value = values[vertical->number]};
}

} // namespace

Scrolling::Scrolling(Connection &connection)
    : m_connection(connection)
{
    selectInputEvents(connection, connection.root(), XCB_INPUT_DEVICE_ALL,
                      XCB_INPUT_XI_EVENT_MASK_HIERARCHY | XCB_INPUT_XI_EVENT_MASK_DEVICE_CHANGED);
}

void Scrolling::devicesChanged(const xcb_ge_generic_event_t &event)
{
    // That another device is used from now on says nothing about where the axes stand.
    const bool isMereSwitch = event.event_type == XCB_INPUT_DEVICE_CHANGED &&
                              reinterpret_cast<const xcb_input_device_changed_event_t &>(event).reason ==
                                  XCB_INPUT_CHANGE_REASON_SLAVE_SWITCH;
    if (!isMereSwitch)
        m_isStale = true;
}

std::optional<ScrollEvent> Scrolling::pointerMoved(const xcb_input_button_press_event_t &event)
{
    if (m_isStale)
        readDevices();
    const auto found = m_axes.find(event.sourceid);
    if (found == m_axes.end() || isFromBeforeReading(event.full_sequence))
        return std::nullopt;
    Axis &axis = found->second;
    const std::optional<double> value = valueOf(event, axis.number);
    return value ? axis.valuator.moveTo(*value) : std::nullopt;
}

std::optional<ScrollEvent> Scrolling::rawMoved(const xcb_input_raw_motion_event_t &event)
{
    if (m_isStale)
        readDevices();
    const auto found = m_axes.find(event.sourceid);
    if (found == m_axes.end() || !mentions(event, found->second.number))
        return std::nullopt;
    // The event has the value as the driver gave it, which is a way with some drivers and a place with
    // others. Where the axis stands, the server knows.
    const auto cookie = xcb_input_xi_query_device(m_connection.xcb(), event.sourceid);
    const auto reply = owned(xcb_input_xi_query_device_reply(m_connection.xcb(), cookie, nullptr));
    if (!reply || reply->num_infos == 0)
        return std::nullopt;
    const auto axis = verticalAxisOf(*xcb_input_xi_query_device_infos_iterator(reply.get()).data);
    return axis ? found->second.valuator.moveTo(axis->value) : std::nullopt;
}

std::optional<ScrollEvent> Scrolling::buttonPressed(const xcb_input_button_press_event_t &event) const
{
    return isOfAxis(event.flags, event.sourceid) ? std::nullopt : step(event.detail);
}

std::optional<ScrollEvent> Scrolling::rawButtonPressed(const xcb_input_raw_button_press_event_t &event,
                                                       std::uint32_t button) const
{
    const bool isToldByAxis =
        isOfAxis(event.flags, event.sourceid) && !isFromBeforeReading(event.full_sequence);
    return isToldByAxis ? std::nullopt : step(button);
}

bool Scrolling::isOfAxis(std::uint32_t flags, xcb_input_device_id_t source) const
{
    const bool isEmulated = (flags & XCB_INPUT_POINTER_EVENT_FLAGS_POINTER_EMULATED) != 0;
    return isEmulated && m_axes.count(source) > 0;
}

bool Scrolling::isFromBeforeReading(std::uint32_t sequence) const
{
    // The numbers wrap round.
    return static_cast<std::int32_t>(sequence - m_readBy) < 0;
}

std::optional<ScrollEvent> Scrolling::step(std::uint32_t button)
{
    if (button == kWheelUp)
        return ScrollEvent{.distance = 1.0, .isPrecise = false, .modifiers = {}};
    if (button == kWheelDown)
        return ScrollEvent{.distance = -1.0, .isPrecise = false, .modifiers = {}};
    return std::nullopt;
}

void Scrolling::readDevices()
{
    const auto cookie = xcb_input_xi_query_device(m_connection.xcb(), XCB_INPUT_DEVICE_ALL);
    m_readBy = cookie.sequence;
    m_axes.clear();
    const auto reply = owned(xcb_input_xi_query_device_reply(m_connection.xcb(), cookie, nullptr));
    if (!reply)
        return;
    m_isStale = false;
    for (auto device = xcb_input_xi_query_device_infos_iterator(reply.get()); device.rem;
         xcb_input_xi_device_info_next(&device)) {
        // The master only repeats what the device has that was used last.
        if (device.data->type != XCB_INPUT_DEVICE_TYPE_SLAVE_POINTER)
            continue;
        if (const auto axis = verticalAxisOf(*device.data))
            m_axes.insert_or_assign(device.data->deviceid,
                                    Axis{axis->number, ScrollValuator(axis->increment, axis->value)});
    }
}

} // namespace zeigewerk::platform::x11
