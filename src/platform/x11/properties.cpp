#include "platform/x11/properties.h"

#include <span>

namespace zeigewerk::platform::x11 {

NumbersRequest::NumbersRequest(Connection &connection, xcb_window_t window, const char *property,
                               xcb_atom_t type)
    : m_xcb(connection.xcb())
{
    constexpr std::uint32_t kMaxValues = 4096;
    m_cookie = xcb_get_property(m_xcb, 0, window, connection.atom(property), type, 0, kMaxValues);
}

std::vector<std::uint32_t> NumbersRequest::take()
{
    const auto reply = owned(xcb_get_property_reply(m_xcb, m_cookie, nullptr));
    if (!reply || reply->format != 32)
        return {};
    const std::span values(static_cast<const std::uint32_t *>(xcb_get_property_value(reply.get())),
                           reply->value_len);
    return {values.begin(), values.end()};
}

void setNumbers(Connection &connection, xcb_window_t window, const char *property, xcb_atom_t type,
                std::initializer_list<std::uint32_t> values)
{
    xcb_change_property(connection.xcb(), XCB_PROP_MODE_REPLACE, window, connection.atom(property), type, 32,
                        static_cast<std::uint32_t>(values.size()), values.begin());
}

void refuseShadow(Connection &connection, xcb_window_t window)
{
    setNumbers(connection, window, "_COMPTON_SHADOW", XCB_ATOM_CARDINAL, {0});
}

} // namespace zeigewerk::platform::x11
