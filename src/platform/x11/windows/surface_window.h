#pragma once

#include "platform/surface.h"
#include "platform/x11/connection.h"

#include <QRect>

namespace zeigewerk::platform::x11 {

/// Creates the unmapped window of a surface: override-redirect and transparent. It gets the pointer through
/// X Input 2 (with sub-pixel positions) and the keyboard through the core protocol.
xcb_window_t createSurfaceWindow(Connection &connection, SurfaceRole role, const QRect &nativeFrame);

/// Creates the unmapped, input-only window that takes the pointer for a surface whose own window is shaped.
xcb_window_t createInputWindow(Connection &connection, const QRect &nativeFrame);

/// Moves and resizes a window.
void configureWindow(Connection &connection, xcb_window_t window, const QRect &nativeFrame);

} // namespace zeigewerk::platform::x11
