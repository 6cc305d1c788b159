#pragma once

#include "platform/event_monitor.h"
#include "platform/x11/connection.h"
#include "platform/x11/input/alt_watch.h"
#include "platform/x11/input/scrolling.h"
#include "platform/x11/screens.h"

#include <xcb/xinput.h>

#include <utility>

namespace zeigewerk::platform::x11 {

/// Watches the pointer through the raw events of X Input 2. They come in addition to the ordinary events,
/// even while another program has a grab, and give neither the pointer's position nor the modifiers.
class X11EventMonitor : public EventMonitor
{
public:
    X11EventMonitor(Connection &connection, const Screens &screens, Scrolling &scrolling);

    void setListening(MonitoredEvents events) override;
    void setLeftPressHandler(std::function<void(QPointF)> handler) override
    {
        m_leftPress = std::move(handler);
    }
    void setScrollHandler(std::function<void(const MonitoredScroll &)> handler) override
    {
        m_scroll = std::move(handler);
    }

    /// Handles an event of X Input. Returns true if nobody else needs it.
    bool handle(const xcb_ge_generic_event_t &event);
    /// The same for an event of XKB.
    bool handleXkb(const xcb_generic_event_t &event);

private:
    void listenToAxes(bool listens);
    void selectRawEvents();
    void leftPressed() const;
    void buttonPressed(const xcb_input_raw_button_press_event_t &event);
    std::uint32_t logicalButton(std::uint32_t physicalButton) const;
    void notifyScroll(std::optional<ScrollEvent> scroll) const;

    Connection &m_connection;
    const Screens &m_screens;
    Scrolling &m_scrolling;
    AltWatch m_alt;
    int m_fingers = 0;
    MonitoredEvents m_listening;
    /// Motion of scroll axes is selected only while Alt is held, since each motion of the pointer then wakes
    /// the program.
    bool m_hearsAxes = false;
    std::function<void(QPointF)> m_leftPress;
    std::function<void(const MonitoredScroll &)> m_scroll;
};

} // namespace zeigewerk::platform::x11
