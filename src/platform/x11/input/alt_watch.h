#pragma once

#include "platform/x11/connection.h"

namespace zeigewerk::platform::x11 {

/// Knows whether Alt is held, wherever the keyboard's focus is, and is woken by nothing but modifiers.
class AltWatch
{
public:
    explicit AltWatch(Connection &connection)
        : m_connection(connection)
    {
    }

    /// From now on it is known, or no longer.
    void setWatching(bool watches);
    bool isHeld() const { return m_isHeld; }
    /// An event of the XKB extension; true if it was about modifiers, and concerns nobody else.
    bool handle(const xcb_generic_event_t &event);

private:
    Connection &m_connection;
    bool m_isHeld = false;
};

} // namespace zeigewerk::platform::x11
