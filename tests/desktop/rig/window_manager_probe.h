// Whether a window manager really manages windows by now.
#pragma once

#include "client.h"

namespace zeigewerk::rig {

/// A tiny window that asks to be managed. Some window managers announce themselves before they listen, and
/// the map request of a window that comes in between is lost for good.
class WindowManagerProbe
{
public:
    explicit WindowManagerProbe(Client &client);
    /// Destroys the window if withdraw() did not.
    ~WindowManagerProbe();
    WindowManagerProbe(const WindowManagerProbe &) = delete;
    WindowManagerProbe &operator=(const WindowManagerProbe &) = delete;

    /// Asks again to be mapped unless it is on the screen; true once it is and the window manager lists it.
    bool isManaged();
    /// Destroys the window; true once the window manager has forgotten it.
    bool isForgotten();

private:
    bool isListed();

    Client &m_client;
    xcb_window_t m_id = XCB_WINDOW_NONE;
    bool m_isDestroyed = false;
};

} // namespace zeigewerk::rig
