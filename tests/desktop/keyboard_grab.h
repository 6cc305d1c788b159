#pragma once

#include "rig.h"

namespace zeigewerk::rig {

/// Another program that has grabbed the whole keyboard, as a window switcher does. See KeyGrab for a single
/// key.
class KeyboardGrab
{
public:
    explicit KeyboardGrab(DesktopSession &session)
        : m_client(session.display().name())
    {
        const auto cookie = xcb_grab_keyboard(m_client.connection(), 0, m_client.root(), XCB_CURRENT_TIME,
                                              XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        const auto reply = owned(xcb_grab_keyboard_reply(m_client.connection(), cookie, nullptr));
        if (!reply || reply->status != XCB_GRAB_STATUS_SUCCESS)
            throw RigError("the keyboard is grabbed already");
    }
    ~KeyboardGrab()
    {
        // The next keys are for everybody again.
        xcb_ungrab_keyboard(m_client.connection(), XCB_CURRENT_TIME);
        m_client.roundTrip();
    }
    KeyboardGrab(const KeyboardGrab &) = delete;
    KeyboardGrab &operator=(const KeyboardGrab &) = delete;

private:
    Client m_client;
};

} // namespace zeigewerk::rig
