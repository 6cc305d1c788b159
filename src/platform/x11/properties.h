#pragma once

#include "platform/x11/connection.h"

#include <cstdint>
#include <initializer_list>
#include <vector>

namespace zeigewerk::platform::x11 {

/// A pending request for a property of 32-bit values. Sending several before taking the first reply costs
/// only one round trip.
class NumbersRequest
{
public:
    NumbersRequest(Connection &connection, xcb_window_t window, const char *property, xcb_atom_t type);

    /// Waits for the reply. Empty if the property or the window does not exist. Call it exactly once.
    std::vector<std::uint32_t> take();

private:
    xcb_connection_t *m_xcb;
    xcb_get_property_cookie_t m_cookie;
};

void setNumbers(Connection &connection, xcb_window_t window, const char *property, xcb_atom_t type,
                std::initializer_list<std::uint32_t> values);

/// Asks compositors not to draw a shadow for the window.
void refuseShadow(Connection &connection, xcb_window_t window);

} // namespace zeigewerk::platform::x11
