#include "platform/x11/input/event_mask.h"

namespace zeigewerk::platform::x11 {

void selectInputEvents(Connection &connection, xcb_window_t window, xcb_input_device_id_t device,
                       std::uint32_t mask)
{
    // The protocol wants the words of the mask right behind their count.
    struct
    {
        xcb_input_event_mask_t head;
        std::uint32_t mask;
    } selection = {{.deviceid = device, .mask_len = 1}, mask};
    xcb_input_xi_select_events(connection.xcb(), window, 1, &selection.head);
}

} // namespace zeigewerk::platform::x11
