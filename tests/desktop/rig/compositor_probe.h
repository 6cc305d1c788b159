// Detects that a compositor actually paints.
#pragma once

#include "client.h"

#include <QPoint>

namespace zeigewerk::rig {

/// A half-transparent window over an opaque one. Only a compositor blends their colours. One that has merely
/// announced itself has not painted yet, and a screenshot would not show what users see.
class CompositorProbe
{
public:
    /// The windows cover a few pixels to the right of and below that place (native root pixels).
    CompositorProbe(Client &client, QPoint place);
    /// Destroys the windows, unless isGone() has done so.
    ~CompositorProbe();
    CompositorProbe(const CompositorProbe &) = delete;
    CompositorProbe &operator=(const CompositorProbe &) = delete;

    /// True once the screen shows the blended colour.
    bool isBlended();
    /// Destroys the windows; true once the screen no longer shows them.
    bool isGone();

private:
    xcb_window_t show(std::uint8_t depth, xcb_visualid_t visual, std::uint32_t pixel);
    void destroy();

    Client &m_client;
    QPoint m_place;
    xcb_window_t m_lower = XCB_WINDOW_NONE;
    xcb_window_t m_upper = XCB_WINDOW_NONE;
};

} // namespace zeigewerk::rig
