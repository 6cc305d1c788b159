#include "platform/x11/compositing.h"

#include <xcb/xfixes.h>

#include <string>

namespace zeigewerk::platform::x11 {

Compositing::Compositing(Connection &connection)
    : m_connection(connection)
    , m_selection(connection.atom(("_NET_WM_CM_S" + std::to_string(connection.screenNumber())).c_str()))
{
    xcb_connection_t *xcb = connection.xcb();
    // The extension answers nothing before it has been asked for its version.
    const auto version =
        owned(xcb_xfixes_query_version_reply(xcb, xcb_xfixes_query_version(xcb, 5, 0), nullptr));
    if (version) {
        m_changeEvent = static_cast<std::uint8_t>(xcb_get_extension_data(xcb, &xcb_xfixes_id)->first_event +
                                                  XCB_XFIXES_SELECTION_NOTIFY);
        xcb_xfixes_select_selection_input(xcb, connection.root(), m_selection,
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                              XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                              XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    }
    m_isOn = hasOwner();
}

void Compositing::ownerChanged()
{
    if (hasOwner() == m_isOn)
        return;
    m_isOn = !m_isOn;
    Q_EMIT changed();
}

bool Compositing::hasOwner() const
{
    const auto cookie = xcb_get_selection_owner(m_connection.xcb(), m_selection);
    const auto reply = owned(xcb_get_selection_owner_reply(m_connection.xcb(), cookie, nullptr));
    return reply && reply->owner != XCB_NONE;
}

} // namespace zeigewerk::platform::x11
