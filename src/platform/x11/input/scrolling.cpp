#include "platform/x11/input/scrolling.h"

#include "platform/x11/input/event_mask.h"

#include <map>

namespace zeigewerk::platform::x11 {

namespace {

constexpr std::uint32_t kWheelUp = 4;
constexpr std::uint32_t kWheelDown = 5;

/// X Input's 32.32 fixed point.
double fromFixed(const xcb_input_fp3232_t &value)
{
    return value.integral + value.frac / 4294967296.0;
}

/// `mask` has words of 32 bits, the lowest first.
bool isSet(const std::uint32_t *mask, std::uint16_t words, std::uint16_t bit)
{
    return bit / 32U < words && (mask[bit / 32U] >> (bit % 32U) & 1U) != 0;
}

/// The value that the event gives the axis; none if the axis did not move.
std::optional<double> valueOf(const xcb_input_button_press_event_t &event, std::uint16_t axis)
{
    const std::uint32_t *mask = xcb_input_button_press_valuator_mask(&event);
    if (!isSet(mask, event.valuators_len, axis))
        return std::nullopt;
    // There is a value for each bit that is set, in the same order.
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

std::optional<ScrollAxis> verticalAxisOf(const xcb_input_xi_device_info_t &device)
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
    return ScrollAxis{.device = device.deviceid,
                      .number = vertical->number,
                      .increment = fromFixed(vertical->increment),
                      .value = values[vertical->number]};
}

std::vector<ScrollAxis> verticalAxesOf(const xcb_input_xi_query_device_reply_t &devices)
{
    std::vector<ScrollAxis> axes;
    for (auto device = xcb_input_xi_query_device_infos_iterator(&devices); device.rem;
         xcb_input_xi_device_info_next(&device)) {
        // A master only repeats the axes of the device that was used last.
        if (device.data->type != XCB_INPUT_DEVICE_TYPE_SLAVE_POINTER)
            continue;
        if (const auto axis = verticalAxisOf(*device.data))
            axes.push_back(*axis);
    }
    return axes;
}

/// Whether the server has emulated a button for a step that the device's axis reports.
bool isEmulated(std::uint32_t flags, xcb_input_device_id_t device, const ScrollAxes &axes)
{
    return (flags & XCB_INPUT_POINTER_EVENT_FLAGS_POINTER_EMULATED) != 0 && axes.numberOf(device);
}

std::optional<ScrollEvent> stepOf(std::uint32_t button)
{
    if (button == kWheelUp)
        return ScrollEvent{.distance = 1.0, .isPrecise = false, .modifiers = {}};
    if (button == kWheelDown)
        return ScrollEvent{.distance = -1.0, .isPrecise = false, .modifiers = {}};
    return std::nullopt;
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
    // A switch to another device moves no axis.
    const bool isDeviceSwitch = event.event_type == XCB_INPUT_DEVICE_CHANGED &&
                                reinterpret_cast<const xcb_input_device_changed_event_t &>(event).reason ==
                                    XCB_INPUT_CHANGE_REASON_SLAVE_SWITCH;
    if (isDeviceSwitch)
        return;
    m_surfaceAxes.invalidate();
    m_rawAxes.invalidate();
}

std::optional<ScrollEvent> Scrolling::pointerMoved(const xcb_input_button_press_event_t &event)
{
    if (m_surfaceAxes.isStale())
        read(m_surfaceAxes);
    const std::optional<std::uint16_t> axis = m_surfaceAxes.numberOf(event.sourceid);
    if (!axis || m_surfaceAxes.includes(event.full_sequence))
        return std::nullopt;
    const std::optional<double> value = valueOf(event, *axis);
    return value ? m_surfaceAxes.moveTo(event.sourceid, *value) : std::nullopt;
}

std::optional<ScrollEvent> Scrolling::rawMoved(const xcb_input_raw_motion_event_t &event)
{
    if (m_rawAxes.isStale())
        read(m_rawAxes);
    const std::optional<std::uint16_t> number = m_rawAxes.numberOf(event.sourceid);
    if (!number || !mentions(event, *number))
        return std::nullopt;
    // A raw value is relative with some drivers and absolute with others; the server knows the axis's value.
    const auto cookie = xcb_input_xi_query_device(m_connection.xcb(), event.sourceid);
    const auto reply = owned(xcb_input_xi_query_device_reply(m_connection.xcb(), cookie, nullptr));
    if (!reply || reply->num_infos == 0)
        return std::nullopt;
    const auto axis = verticalAxisOf(*xcb_input_xi_query_device_infos_iterator(reply.get()).data);
    return axis ? m_rawAxes.moveTo(event.sourceid, axis->value) : std::nullopt;
}

std::optional<ScrollEvent> Scrolling::buttonPressed(const xcb_input_button_press_event_t &event) const
{
    return isEmulated(event.flags, event.sourceid, m_surfaceAxes) ? std::nullopt : stepOf(event.detail);
}

std::optional<ScrollEvent> Scrolling::rawButtonPressed(const xcb_input_raw_button_press_event_t &event,
                                                       std::uint32_t button) const
{
    const bool isReportedByAxis =
        isEmulated(event.flags, event.sourceid, m_rawAxes) && !m_rawAxes.includes(event.full_sequence);
    return isReportedByAxis ? std::nullopt : stepOf(button);
}

void Scrolling::read(ScrollAxes &axes)
{
    const auto cookie = xcb_input_xi_query_device(m_connection.xcb(), XCB_INPUT_DEVICE_ALL);
    const auto reply = owned(xcb_input_xi_query_device_reply(m_connection.xcb(), cookie, nullptr));
    if (reply)
        axes.adopt(verticalAxesOf(*reply), cookie.sequence);
    else
        axes.invalidate();
}

} // namespace zeigewerk::platform::x11
