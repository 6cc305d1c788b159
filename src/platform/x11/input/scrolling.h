#pragma once

#include "platform/x11/connection.h"
#include "platform/x11/input/scroll_axes.h"

#include <xcb/xinput.h>

namespace zeigewerk::platform::x11 {

/// Turns events of pointing devices into scroll events, for two listeners: the surfaces, and the event
/// monitor with its raw events. Both may see the same step.
///
/// A device with a scroll axis reports its steps as motion of that axis. The server emulates presses of
/// buttons 4 and 5 for them, which are coarser and are ignored.
class Scrolling
{
public:
    explicit Scrolling(Connection &connection);

    /// XCB_INPUT_DEVICE_CHANGED or XCB_INPUT_HIERARCHY.
    void devicesChanged(const xcb_ge_generic_event_t &event);

    /// The pointer has come to a surface: what the axes did before was not for the surfaces.
    void surfaceEntered() { read(m_surfaceAxes); }
    std::optional<ScrollEvent> pointerMoved(const xcb_input_button_press_event_t &event);
    std::optional<ScrollEvent> buttonPressed(const xcb_input_button_press_event_t &event) const;

    /// Raw motion is reported from now on. Earlier steps count by their emulated buttons.
    void rawMotionSelected() { read(m_rawAxes); }
    std::optional<ScrollEvent> rawMoved(const xcb_input_raw_motion_event_t &event);
    /// `button` is the button that the user's mapping makes of `event.detail`.
    std::optional<ScrollEvent> rawButtonPressed(const xcb_input_raw_button_press_event_t &event,
                                                std::uint32_t button) const;

private:
    void read(ScrollAxes &axes);

    Connection &m_connection;
    ScrollAxes m_surfaceAxes;
    ScrollAxes m_rawAxes;
};

} // namespace zeigewerk::platform::x11
