// Detects that a window manager actually manages windows.
#pragma once

#include "client.h"

namespace zeigewerk::rig {

/// A tiny window that asks to be managed. Some window managers announce themselves before they are ready, and
/// lose the map requests of windows that open in between.
class WindowManagerProbe
{
public:
    explicit WindowManagerProbe(Client &client);
    /// Destroys the window, unless isForgotten() has done so.
    ~WindowManagerProbe();
    WindowManagerProbe(const WindowManagerProbe &) = delete;
    WindowManagerProbe &operator=(const WindowManagerProbe &) = delete;

    /// Asks to be mapped until the window manager lists the window; true once it does.
    bool isManaged();
    /// Destroys the window; true once the window manager no longer lists it.
    bool isForgotten();

private:
    bool isListed();

    Client &m_client;
    xcb_window_t m_id = XCB_WINDOW_NONE;
    bool m_isDestroyed = false;
};

} // namespace zeigewerk::rig
