#pragma once

#include "platform/x11/connection.h"

namespace zeigewerk::platform::x11 {

/// Tracks whether Alt is held, whatever has the keyboard. Only changes of modifiers wake the program.
class AltWatch
{
public:
    explicit AltWatch(Connection &connection)
        : m_connection(connection)
    {
    }

    /// Starts or stops tracking.
    void setWatching(bool watches);
    bool isHeld() const { return m_isHeld; }
    /// Handles an event of the XKB extension. Returns true if it was about modifiers, and nobody else needs
    /// it.
    bool handle(const xcb_generic_event_t &event);

private:
    Connection &m_connection;
    bool m_isHeld = false;
};

} // namespace zeigewerk::platform::x11
