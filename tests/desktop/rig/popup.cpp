#include "popup.h"

#include "desktop_session.h"

#include <array>

namespace zeigewerk::rig {

Popup::Popup(DesktopSession &session, const QRect &rect, const QColor &color)
    : m_client(session.display().name())
    , m_id(xcb_generate_id(m_client.connection()))
{
    constexpr std::uint32_t kOverrideRedirect = 1;
    const std::array<std::uint32_t, 2> values = {color.rgb() & 0xFFFFFF, kOverrideRedirect};
    xcb_create_window(m_client.connection(), XCB_COPY_FROM_PARENT, m_id, m_client.root(),
                      static_cast<std::int16_t>(rect.x()), static_cast<std::int16_t>(rect.y()),
                      static_cast<std::uint16_t>(rect.width()), static_cast<std::uint16_t>(rect.height()), 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values.data());
    xcb_map_window(m_client.connection(), m_id);
    raise();
}

void Popup::raise() const
{
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(m_client.connection(), m_id, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    m_client.roundTrip();
}

void Popup::lowerBelow(const Popup &other) const
{
    const std::array<std::uint32_t, 2> values = {other.id(), XCB_STACK_MODE_BELOW};
    xcb_configure_window(m_client.connection(), m_id,
                         XCB_CONFIG_WINDOW_SIBLING | XCB_CONFIG_WINDOW_STACK_MODE, values.data());
    m_client.roundTrip();
}

bool Popup::grabPointer() const
{
    m_presses = 0;
    const auto cookie =
        xcb_grab_pointer(m_client.connection(), 0, m_id, XCB_EVENT_MASK_BUTTON_PRESS, XCB_GRAB_MODE_ASYNC,
                         XCB_GRAB_MODE_ASYNC, XCB_WINDOW_NONE, XCB_CURSOR_NONE, XCB_CURRENT_TIME);
    const auto reply = owned(xcb_grab_pointer_reply(m_client.connection(), cookie, nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

void Popup::ungrabPointer() const
{
    xcb_ungrab_pointer(m_client.connection(), XCB_CURRENT_TIME);
    m_client.roundTrip();
}

int Popup::presses() const
{
    constexpr int kSentFlag = 0x80;
    while (const auto event = owned(xcb_poll_for_event(m_client.connection()))) {
        if ((event->response_type & ~kSentFlag) == XCB_BUTTON_PRESS)
            ++m_presses;
    }
    return m_presses;
}

} // namespace zeigewerk::rig
