#include "platform/x11/input/key_announcements.h"

#include "platform/x11/input/event_mask.h"

#include <vector>

namespace zeigewerk::platform::x11 {

namespace {

/// The server makes core key events from the events of these.
std::vector<xcb_input_device_id_t> masterKeyboards(Connection &connection)
{
    const auto cookie = xcb_input_xi_query_device(connection.xcb(), XCB_INPUT_DEVICE_ALL_MASTER);
    const auto reply = owned(xcb_input_xi_query_device_reply(connection.xcb(), cookie, nullptr));
    std::vector<xcb_input_device_id_t> keyboards;
    if (!reply)
        return keyboards;
    for (auto device = xcb_input_xi_query_device_infos_iterator(reply.get()); device.rem;
         xcb_input_xi_device_info_next(&device)) {
        if (device.data->type == XCB_INPUT_DEVICE_TYPE_MASTER_KEYBOARD)
            keyboards.push_back(device.data->deviceid);
    }
    return keyboards;
}

/// Selects for each master separately. The selection for all masters together is X11EventMonitor's.
void selectForKeyboards(Connection &connection, std::uint32_t mask)
{
    for (const xcb_input_device_id_t keyboard : masterKeyboards(connection))
        selectInputEvents(connection, connection.root(), keyboard, mask);
}

} // namespace

void startAnnouncingKeys(Connection &connection)
{
    selectForKeyboards(connection, XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS);
}

void stopAnnouncingKeys(Connection &connection)
{
    selectForKeyboards(connection, 0);
}

} // namespace zeigewerk::platform::x11
