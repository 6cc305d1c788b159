#pragma once

#include "platform/x11/connection.h"

#include <xcb/xinput.h>

namespace zeigewerk::platform::x11 {

/// Selects the X Input events that a device, or a group such as XCB_INPUT_DEVICE_ALL, sends to a window:
/// `mask` combines XCB_INPUT_XI_EVENT_MASK_…. Replaces the earlier selection for the same window and device.
void selectInputEvents(Connection &connection, xcb_window_t window, xcb_input_device_id_t device,
                       std::uint32_t mask);

} // namespace zeigewerk::platform::x11
