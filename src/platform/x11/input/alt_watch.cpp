#include "platform/x11/input/alt_watch.h"

#include "platform/x11/input/modifiers.h"
#include "platform/x11/input/xkb.h"

namespace zeigewerk::platform::x11 {

void AltWatch::setWatching(bool watches)
{
    constexpr std::uint16_t kState = XCB_XKB_EVENT_TYPE_STATE_NOTIFY;
    xcb_xkb_select_events_details_t details = {};
    details.affectState = XCB_XKB_STATE_PART_MODIFIER_STATE;
    details.stateDetails = XCB_XKB_STATE_PART_MODIFIER_STATE;
    xcb_xkb_select_events_aux(m_connection.xcb(), XCB_XKB_ID_USE_CORE_KBD, kState, watches ? 0 : kState, 0, 0,
                              0, &details);
    m_isHeld = false;
    if (!watches)
        return;
    // Alt may already be held, as part of a hot key.
    const auto cookie = xcb_xkb_get_state(m_connection.xcb(), XCB_XKB_ID_USE_CORE_KBD);
    const auto reply = owned(xcb_xkb_get_state_reply(m_connection.xcb(), cookie, nullptr));
    m_isHeld = reply && (reply->mods & kAltMask) != 0;
}

bool AltWatch::handle(const xcb_generic_event_t &event)
{
    const auto &notify = reinterpret_cast<const xcb_xkb_state_notify_event_t &>(event);
    if (notify.xkbType != XCB_XKB_STATE_NOTIFY)
        return false;
    m_isHeld = (notify.mods & kAltMask) != 0;
    return true;
}

} // namespace zeigewerk::platform::x11
