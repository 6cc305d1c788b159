#pragma once

#include "platform/geometry.h"
#include "platform/x11/connection.h"

#include <optional>

namespace zeigewerk::platform::x11 {

/// The pointer at this moment.
struct PointerState
{
    /// Points, global coordinates, y up: the middle of the pixel.
    QPointF location;
    /// The core protocol's state of buttons and modifiers.
    std::uint16_t mask = 0;
    /// The child of the root window that it is over; none over the root itself.
    xcb_window_t topLevel = XCB_NONE;
};

/// Asks the server, in one round trip. None if the pointer is on another of the server's screens.
std::optional<PointerState> queryPointer(const Connection &connection, const ScreenLayout &layout);

} // namespace zeigewerk::platform::x11
