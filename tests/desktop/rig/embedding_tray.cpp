#include "embedding_tray.h"

#include "desktop_session.h"
#include "rig_error.h"

#include <algorithm>

namespace zeigewerk::rig {

namespace {

constexpr std::uint16_t kSide = 24;
constexpr char kSelection[] = "_NET_SYSTEM_TRAY_S0";
constexpr std::uint32_t kRequestDock = 0;
constexpr std::uint32_t kEmbeddedNotify = 0;

} // namespace

EmbeddingTray::EmbeddingTray(DesktopSession &session, QPoint place)
    : m_session(session)
    , m_client(session.display().name())
    , m_place(place)
{
}

void EmbeddingTray::start()
{
    if (m_client.selectionHasOwner(kSelection))
        failRig(QStringLiteral("there already is a tray"));
    xcb_connection_t *xcb = m_client.connection();
    m_window = xcb_generate_id(xcb);
    const std::array<std::uint32_t, 2> values = {m_client.screen().white_pixel, 1};
    xcb_create_window(xcb, XCB_COPY_FROM_PARENT, m_window, m_client.root(),
                      static_cast<std::int16_t>(m_place.x()), static_cast<std::int16_t>(m_place.y()), kSide,
                      kSide, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values.data());
    xcb_map_window(xcb, m_window);
    xcb_set_selection_owner(xcb, m_window, m_client.atom(kSelection), XCB_CURRENT_TIME);
    send(m_client.root(), m_client.root(), "MANAGER", XCB_EVENT_MASK_STRUCTURE_NOTIFY,
         {XCB_CURRENT_TIME, m_client.atom(kSelection), m_window, 0, 0});
}

void EmbeddingTray::stop()
{
    xcb_connection_t *xcb = m_client.connection();
    if (m_icon != XCB_WINDOW_NONE) {
        xcb_unmap_window(xcb, m_icon);
        xcb_reparent_window(xcb, m_icon, m_client.root(), 0, 0);
    }
    // The selection is released with its owner.
    xcb_destroy_window(xcb, m_window);
    m_window = XCB_WINDOW_NONE;
    m_icon = XCB_WINDOW_NONE;
    // Pending events were meant for the destroyed window.
    m_client.roundTrip();
    while (owned(xcb_poll_for_event(xcb))) {
    }
}

std::optional<WindowInfo> EmbeddingTray::icon()
{
    handleEvents();
    const auto icon = m_session.client().window(m_icon);
    return icon && icon->viewable ? icon : std::nullopt;
}

void EmbeddingTray::handleEvents()
{
    const xcb_atom_t opcode = m_client.atom("_NET_SYSTEM_TRAY_OPCODE");
    while (const auto event = owned(xcb_poll_for_event(m_client.connection()))) {
        if ((event->response_type & ~0x80) != XCB_CLIENT_MESSAGE)
            continue;
        const auto &message = reinterpret_cast<const xcb_client_message_event_t &>(*event);
        if (message.type == opcode && message.data.data32[1] == kRequestDock)
            dock(message.data.data32[2]);
    }
}

void EmbeddingTray::dock(xcb_window_t icon)
{
    xcb_connection_t *xcb = m_client.connection();
    m_icon = icon;
    const std::array<std::uint32_t, 2> size = {kSide, kSide};
    xcb_reparent_window(xcb, icon, m_window, 0, 0);
    xcb_configure_window(xcb, icon, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, size.data());
    xcb_map_window(xcb, icon);
    send(icon, icon, "_XEMBED", XCB_EVENT_MASK_NO_EVENT, {XCB_CURRENT_TIME, kEmbeddedNotify, 0, m_window, 0});
}

void EmbeddingTray::send(xcb_window_t receiver, xcb_window_t about, const QByteArray &type,
                         std::uint32_t mask, const std::array<std::uint32_t, 5> &data)
{
    xcb_client_message_event_t message = {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = about;
    message.type = m_client.atom(type);
    std::copy(data.begin(), data.end(), message.data.data32);
    xcb_send_event(m_client.connection(), 0, receiver, mask, reinterpret_cast<const char *>(&message));
    xcb_flush(m_client.connection());
}

} // namespace zeigewerk::rig
