#pragma once

#include "platform/x11/connection.h"

#include <xcb/xinput.h>

namespace zeigewerk::platform::x11 {

/// Selects what a device, or all of a kind, sends to a window: XCB_INPUT_XI_EVENT_MASK_… combined, 0 for
/// nothing. Replaces the earlier selection for that window and device.
void selectInputEvents(Connection &connection, xcb_window_t window, xcb_input_device_id_t device,
                       std::uint32_t mask);

} // namespace zeigewerk::platform::x11
