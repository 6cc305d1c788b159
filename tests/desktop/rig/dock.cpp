#include "dock.h"

#include "desktop_session.h"
#include "eventually.h"
#include "rig_error.h"

namespace zeigewerk::rig {

Dock::Dock(DesktopSession &session, const QRect &rect, const QByteArray &property,
           const QList<quint32> &strut)
    : m_client(session.display().name())
    , m_id(xcb_generate_id(m_client.connection()))
{
    xcb_connection_t *c = m_client.connection();
    const std::uint32_t grey = 0x808080;
    xcb_create_window(c, XCB_COPY_FROM_PARENT, m_id, m_client.root(), static_cast<std::int16_t>(rect.x()),
                      static_cast<std::int16_t>(rect.y()), static_cast<std::uint16_t>(rect.width()),
                      static_cast<std::uint16_t>(rect.height()), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL, &grey);
    const xcb_atom_t dock = m_client.atom("_NET_WM_WINDOW_TYPE_DOCK");
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, m_id, m_client.atom("_NET_WM_WINDOW_TYPE"), XCB_ATOM_ATOM,
                        32, 1, &dock);
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, m_id, m_client.atom(property), XCB_ATOM_CARDINAL, 32,
                        static_cast<std::uint32_t>(strut.size()), strut.constData());
    xcb_map_window(c, m_id);
    xcb_flush(c);
    const bool isListed = eventually([&] {
        const std::optional<WindowInfo> now = session.client().window(m_id);
        return now && now->viewable &&
               session.client().property(session.client().root(), "_NET_CLIENT_LIST").contains(m_id);
    });
    if (!isListed)
        failRig(QStringLiteral("the window manager does not list the dock"));
}

} // namespace zeigewerk::rig
