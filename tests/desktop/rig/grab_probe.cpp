#include "grab_probe.h"

#include "desktop_session.h"

namespace zeigewerk::rig {

bool canGrabKeyboard(DesktopSession &session)
{
    const Client other(session.display().name());
    const auto cookie = xcb_grab_keyboard(other.connection(), 0, other.root(), XCB_CURRENT_TIME,
                                          XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const auto reply = owned(xcb_grab_keyboard_reply(other.connection(), cookie, nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

bool canGrabPointer(DesktopSession &session)
{
    const Client other(session.display().name());
    const auto cookie =
        xcb_grab_pointer(other.connection(), 0, other.root(), 0, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC,
                         XCB_WINDOW_NONE, XCB_CURSOR_NONE, XCB_CURRENT_TIME);
    const auto reply = owned(xcb_grab_pointer_reply(other.connection(), cookie, nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

} // namespace zeigewerk::rig
