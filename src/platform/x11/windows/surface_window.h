#pragma once

#include "platform/surface.h"
#include "platform/x11/connection.h"

#include <QRect>

namespace zeigewerk::platform::x11 {

/// Makes the hidden window of a surface: override-redirect, transparent until painted on, delivering the
/// pointer through X Input 2 (with sub-pixel positions) and the keyboard through the core protocol.
xcb_window_t createSurfaceWindow(Connection &connection, SurfaceRole role, const QRect &nativeFrame);

/// Makes the hidden window that takes the pointer in the place of an overlay's own where that has the shape
/// of what is painted: invisible, and whole.
xcb_window_t createInputWindow(Connection &connection, const QRect &nativeFrame);

/// Moves and resizes a window.
void configureWindow(Connection &connection, xcb_window_t window, const QRect &nativeFrame);

} // namespace zeigewerk::platform::x11
