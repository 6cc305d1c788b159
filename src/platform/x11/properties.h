#pragma once

#include "platform/x11/connection.h"

#include <cstdint>
#include <initializer_list>
#include <vector>

namespace zeigewerk::platform::x11 {

/// A property of 32-bit values that has been asked for; many can be under way at once.
class NumbersRequest
{
public:
    NumbersRequest(Connection &connection, xcb_window_t window, const char *property, xcb_atom_t type);

    /// Waits for the answer, to be called once; empty where there is no such property or no such window.
    std::vector<std::uint32_t> take();

private:
    xcb_connection_t *m_xcb;
    xcb_get_property_cookie_t m_cookie;
};

void setNumbers(Connection &connection, xcb_window_t window, const char *property, xcb_atom_t type,
                std::initializer_list<std::uint32_t> values);

/// Keeps compositors from giving the window a shadow.
void refuseShadow(Connection &connection, xcb_window_t window);

} // namespace zeigewerk::platform::x11
