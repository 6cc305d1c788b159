#include "key_grab.h"

#include "desktop_session.h"
#include "rig_error.h"

#include <array>

namespace zeigewerk::rig {

namespace {

/// A passive grab applies to one exact state, so a hot key needs four of them.
std::array<std::uint16_t, 4> statesOf(const Modifiers &modifiers)
{
    const std::uint16_t base = modifierMask(modifiers);
    const auto with = [&](int locks) { return static_cast<std::uint16_t>(base | locks); };
    return {base, with(XCB_MOD_MASK_LOCK), with(XCB_MOD_MASK_2), with(XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2)};
}

xcb_void_cookie_t grab(Client &client, std::uint16_t state, Key key)
{
    return xcb_grab_key_checked(client.connection(), 1, client.root(), state, static_cast<xcb_keycode_t>(key),
                                XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
}

} // namespace

KeyGrab::KeyGrab(DesktopSession &session, const Modifiers &modifiers, Key key)
    : m_client(session.display().name())
{
    for (const std::uint16_t state : statesOf(modifiers))
        if (owned(xcb_request_check(m_client.connection(), grab(m_client, state, key))))
            failRig(QStringLiteral("the hot key is already grabbed"));
}

int KeyGrab::presses()
{
    while (const auto event = owned(xcb_poll_for_event(m_client.connection())))
        m_presses += (event->response_type & ~0x80) == XCB_KEY_PRESS ? 1 : 0;
    return m_presses;
}

bool isGrabbedByAnother(DesktopSession &session, const Modifiers &modifiers, Key key)
{
    Client &client = session.client();
    xcb_connection_t *c = client.connection();
    for (const std::uint16_t state : statesOf(modifiers)) {
        // Without the server grab, a program that registers this key at the same moment could be refused
        // because of our trial.
        xcb_grab_server(c);
        const xcb_void_cookie_t trial = grab(client, state, key);
        xcb_ungrab_key(c, static_cast<xcb_keycode_t>(key), client.root(), state);
        xcb_ungrab_server(c);
        const auto error = owned(xcb_request_check(c, trial));
        if (!error || error->error_code != XCB_ACCESS)
            return false;
    }
    return true;
}

} // namespace zeigewerk::rig
