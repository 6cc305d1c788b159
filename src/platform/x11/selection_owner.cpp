#include "platform/x11/selection_owner.h"

#include <string>

namespace zeigewerk::platform::x11 {

SelectionOwner::SelectionOwner(Connection &connection, std::string_view service)
    : m_connection(connection)
    , m_selection(connection.atom((std::string(service) + std::to_string(connection.screenNumber())).c_str()))
{
    xcb_connection_t *xcb = connection.xcb();
    // The extension requires this request before any other.
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
    m_exists = ask();
}

void SelectionOwner::ownerChanged(const xcb_xfixes_selection_notify_event_t &event)
{
    // Ask again: when one owner replaces another, there is briefly none.
    if (event.selection != m_selection || ask() == m_exists)
        return;
    m_exists = !m_exists;
    Q_EMIT changed();
}

bool SelectionOwner::ask() const
{
    const auto cookie = xcb_get_selection_owner(m_connection.xcb(), m_selection);
    const auto reply = owned(xcb_get_selection_owner_reply(m_connection.xcb(), cookie, nullptr));
    return reply && reply->owner != XCB_NONE;
}

} // namespace zeigewerk::platform::x11
