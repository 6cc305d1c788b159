#include "platform/x11/input/x11_event_monitor.h"

#include "platform/x11/input/event_mask.h"
#include "platform/x11/input/modifiers.h"
#include "platform/x11/input/pointer_state.h"

#include <algorithm>

namespace zeigewerk::platform::x11 {

X11EventMonitor::X11EventMonitor(Connection &connection, const Screens &screens, Scrolling &scrolling)
    : m_connection(connection)
    , m_screens(screens)
    , m_scrolling(scrolling)
    , m_alt(connection)
{
}

void X11EventMonitor::setListening(MonitoredEvents events)
{
    const MonitoredEvents before = std::exchange(m_listening, events);
    if (events == before)
        return;
    const bool hearsWheel = events.testFlag(Monitored::WheelWithAlt);
    if (hearsWheel != before.testFlag(Monitored::WheelWithAlt))
        m_alt.setWatching(hearsWheel);
    selectRawEvents();
    listenToAxes(hearsWheel && m_alt.isHeld());
    // From here on, the server reports every click.
    m_connection.roundTrip();
}

void X11EventMonitor::listenToAxes(bool listens)
{
    if (listens == m_hearsAxes)
        return;
    m_hearsAxes = listens;
    selectRawEvents();
    if (listens)
        m_scrolling.rawMotionSelected();
}

void X11EventMonitor::selectRawEvents()
{
    std::uint32_t mask = 0;
    if (m_listening)
        mask |= XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS;
    // For windows that do not select touch events, the first finger presses the pointer's button, but without
    // a raw event.
    if (m_listening.testFlag(Monitored::LeftPresses))
        mask |= XCB_INPUT_XI_EVENT_MASK_RAW_TOUCH_BEGIN | XCB_INPUT_XI_EVENT_MASK_RAW_TOUCH_END;
    else
        m_fingers = 0;
    if (m_hearsAxes)
        mask |= XCB_INPUT_XI_EVENT_MASK_RAW_MOTION;
    // Each raw event comes once for the physical device and once for its master. This leaves the selection
    // that Scrolling makes for all devices as it is.
    selectInputEvents(m_connection, m_connection.root(), XCB_INPUT_DEVICE_ALL_MASTER, mask);
}

bool X11EventMonitor::handle(const xcb_ge_generic_event_t &event)
{
    const auto &raw = reinterpret_cast<const xcb_input_raw_button_press_event_t &>(event);
    switch (event.event_type) {
    case XCB_INPUT_RAW_BUTTON_PRESS:
        buttonPressed(raw);
        return true;
    case XCB_INPUT_RAW_TOUCH_BEGIN:
        if (++m_fingers == 1)
            leftPressed();
        return true;
    case XCB_INPUT_RAW_TOUCH_END:
        m_fingers = std::max(m_fingers - 1, 0);
        return true;
    case XCB_INPUT_RAW_MOTION:
        if (m_hearsAxes)
            notifyScroll(m_scrolling.rawMoved(raw));
        return true;
    default:
        return false;
    }
}

bool X11EventMonitor::handleXkb(const xcb_generic_event_t &event)
{
    if (!m_alt.handle(event))
        return false;
    listenToAxes(m_listening.testFlag(Monitored::WheelWithAlt) && m_alt.isHeld());
    return true;
}

void X11EventMonitor::buttonPressed(const xcb_input_raw_button_press_event_t &event)
{
    // Events may still arrive after listening has ended.
    if (!m_listening)
        return;
    const std::uint32_t button = logicalButton(event.detail);
    if (button == kLeftButton)
        leftPressed();
    if (m_listening.testFlag(Monitored::WheelWithAlt))
        notifyScroll(m_scrolling.rawButtonPressed(event, button));
}

void X11EventMonitor::leftPressed() const
{
    if (!m_listening.testFlag(Monitored::LeftPresses) || !m_leftPress)
        return;
    if (const auto pointer = queryPointer(m_connection, m_screens.layout()))
        m_leftPress(pointer->location);
}

std::uint32_t X11EventMonitor::logicalButton(std::uint32_t physicalButton) const
{
    // Raw events have the hardware's numbers. The user may have mapped the buttons in another order, for the
    // left hand or to reverse the wheel.
    const auto cookie = xcb_get_pointer_mapping(m_connection.xcb());
    const auto reply = owned(xcb_get_pointer_mapping_reply(m_connection.xcb(), cookie, nullptr));
    if (!reply || physicalButton < 1 || physicalButton > reply->map_len)
        return physicalButton;
    return xcb_get_pointer_mapping_map(reply.get())[physicalButton - 1];
}

void X11EventMonitor::notifyScroll(std::optional<ScrollEvent> scroll) const
{
    if (!scroll || !m_scroll)
        return;
    const auto pointer = queryPointer(m_connection, m_screens.layout());
    if (!pointer)
        return;
    scroll->modifiers = modifiersOf(pointer->mask);
    scroll->globalPosition = pointer->location;
    m_scroll({.event = *scroll, .isOverOurs = m_connection.isOurs(pointer->topLevel)});
}

} // namespace zeigewerk::platform::x11
