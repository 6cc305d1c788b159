#include "platform/x11/only_instance.h"

#include <string>

namespace zeigewerk::platform::x11 {

bool becomeOnlyInstance(Connection &connection)
{
    // A selection has one owner, and the server clears it when that client is gone. Unlike a lock file, it
    // cannot be left behind by a program that was killed.
    xcb_connection_t *xcb = connection.xcb();
    const xcb_atom_t selection =
        connection.atom(("_ZEIGEWERK_S" + std::to_string(connection.screenNumber())).c_str());
    const xcb_window_t owner = xcb_generate_id(xcb);
    xcb_create_window(xcb, XCB_COPY_FROM_PARENT, owner, connection.root(), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    // While the server is grabbed, no other client can claim it in between.
    xcb_grab_server(xcb);
    const auto reply =
        owned(xcb_get_selection_owner_reply(xcb, xcb_get_selection_owner(xcb, selection), nullptr));
    const bool isFree = reply && reply->owner == XCB_NONE;
    if (isFree)
        xcb_set_selection_owner(xcb, owner, selection, XCB_CURRENT_TIME);
    xcb_ungrab_server(xcb);
    connection.flush();
    return isFree;
}

} // namespace zeigewerk::platform::x11
