#pragma once

#include "platform/x11/connection.h"
#include "platform/x11/input/scroll_valuator.h"

#include <xcb/xinput.h>

#include <map>

namespace zeigewerk::platform::x11 {

/// Makes scroll events of what the pointing devices do: over our surfaces, or, in another object of this
/// class, anywhere. Devices that have a scroll axis tell more by it than by the buttons 4 and 5, which the
/// server then only makes up for older programs.
class Scrolling
{
public:
    explicit Scrolling(Connection &connection);

    /// From now on the devices are heard: what the axes did until now was not for us.
    void catchUp() { readDevices(); }
    /// An event about the devices themselves: where their axes stand now is not known.
    void devicesChanged(const xcb_ge_generic_event_t &event);

    std::optional<ScrollEvent> pointerMoved(const xcb_input_button_press_event_t &event);
    std::optional<ScrollEvent> buttonPressed(const xcb_input_button_press_event_t &event) const;

    /// The same for raw events, which do not apply the user's order of the buttons: that must have been done
    /// for `button`. What an axis did before `catchUp` is told by its button.
    std::optional<ScrollEvent> rawMoved(const xcb_input_raw_motion_event_t &event);
    std::optional<ScrollEvent> rawButtonPressed(const xcb_input_raw_button_press_event_t &event,
                                                std::uint32_t button) const;

private:
    struct Axis
    {
        std::uint16_t number = 0;
        ScrollValuator valuator;
    };

    void readDevices();
    /// Whether a button was pressed only on behalf of a scroll axis.
    bool isOfAxis(std::uint32_t flags, xcb_input_device_id_t source) const;
    /// Whether an event of that number says nothing that the last reading of the axes did not.
    bool isFromBeforeReading(std::uint32_t sequence) const;
    static std::optional<ScrollEvent> step(std::uint32_t button);

    Connection &m_connection;
    /// Of the physical devices that have one, by device id.
    std::map<xcb_input_device_id_t, Axis> m_axes;
    bool m_isStale = true;
    /// The number of the request that told where the axes stand. Events are numbered by the last request that
    /// the server had seen; one from before it tells nothing new.
    std::uint32_t m_readBy = 0;
};

} // namespace zeigewerk::platform::x11
