#pragma once

#include "platform/event_monitor.h"
#include "platform/x11/connection.h"
#include "platform/x11/input/alt_watch.h"
#include "platform/x11/input/scrolling.h"

#include <xcb/xinput.h>

#include <utility>

namespace zeigewerk::platform::x11 {

/// Watches the pointer by the raw events of X Input 2, which come for each press, whoever holds a grab, and
/// in addition to the ordinary events. They say neither where the pointer is nor which modifiers are held.
class X11EventMonitor : public EventMonitor
{
public:
    X11EventMonitor(Connection &connection, Scrolling &scrolling);

    void setListening(MonitoredEvents events) override;
    void setLeftPressHandler(std::function<void()> handler) override { m_leftPress = std::move(handler); }
    void setScrollHandler(std::function<void(const MonitoredScroll &)> handler) override
    {
        m_scroll = std::move(handler);
    }

    /// An event of X Input; true if it concerns nobody else.
    bool handle(const xcb_ge_generic_event_t &event);
    /// An event of XKB; the same.
    bool handleXkb(const xcb_generic_event_t &event);

private:
    void listenToAxes(bool listens);
    void selectRawEvents();
    void leftPressed() const;
    void buttonPressed(const xcb_input_raw_button_press_event_t &event);
    std::uint32_t logicalButton(std::uint32_t physicalButton) const;
    void tellOfScroll(std::optional<ScrollEvent> scroll) const;

    Connection &m_connection;
    Scrolling &m_scrolling;
    AltWatch m_alt;
    int m_fingers = 0;
    MonitoredEvents m_listening;
    /// Scroll axes move in motion events, each of which wakes the program: they are heard only while Alt is
    /// held.
    bool m_hearsAxes = false;
    std::function<void()> m_leftPress;
    std::function<void(const MonitoredScroll &)> m_scroll;
};

} // namespace zeigewerk::platform::x11
