#include "frame_watch.h"

#include "desktop_session.h"
#include "rig_error.h"

#include <xcb/damage.h>

namespace zeigewerk::rig {

FrameWatch::FrameWatch(DesktopSession &session)
    : m_client(session.display().name())
{
    xcb_connection_t *c = m_client.connection();
    const auto *extension = xcb_get_extension_data(c, &xcb_damage_id);
    const auto version = owned(xcb_damage_query_version_reply(c, xcb_damage_query_version(c, 1, 1), nullptr));
    if (!extension || !extension->present || !version)
        failRig(QStringLiteral("the display lacks the Damage extension"));
    m_firstEvent = extension->first_event;
    const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(c, m_client.root(), XCB_CW_EVENT_MASK, &mask);
    m_client.roundTrip();
}

void FrameWatch::catchUp()
{
    while (const auto event = owned(xcb_poll_for_event(m_client.connection())))
        record(*event);
    xcb_flush(m_client.connection());
}

qsizetype FrameWatch::frames(xcb_window_t window)
{
    catchUp();
    return m_frames.value(window).size();
}

void FrameWatch::record(const xcb_generic_event_t &event)
{
    constexpr int kSentFlag = 0x80;
    const int type = event.response_type & ~kSentFlag;
    if (type == XCB_CREATE_NOTIFY) {
        // Destroyed with the window. If the window is already gone, the server's error is harmless.
        xcb_damage_create(m_client.connection(), xcb_generate_id(m_client.connection()),
                          reinterpret_cast<const xcb_create_notify_event_t &>(event).window,
                          XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
    } else if (type == m_firstEvent + XCB_DAMAGE_NOTIFY) {
        const auto &painted = reinterpret_cast<const xcb_damage_notify_event_t &>(event);
        m_frames[painted.drawable].insert(painted.timestamp);
    }
}

} // namespace zeigewerk::rig
