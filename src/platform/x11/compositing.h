#pragma once

#include "platform/x11/connection.h"

namespace zeigewerk::platform::x11 {

/// Whether a compositor mixes the windows on the screen, so that transparency means something.
class Compositing : public QObject
{
    Q_OBJECT

public:
    explicit Compositing(Connection &connection);

    bool isOn() const { return m_isOn; }
    bool isChangeEvent(std::uint8_t eventType) const { return eventType == m_changeEvent; }
    /// The compositor's selection changed hands.
    void ownerChanged();

Q_SIGNALS:
    void changed();

private:
    bool hasOwner() const;

    Connection &m_connection;
    xcb_atom_t m_selection;
    std::uint8_t m_changeEvent = 0;
    bool m_isOn = false;
};

} // namespace zeigewerk::platform::x11
