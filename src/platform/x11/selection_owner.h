#pragma once

#include "platform/x11/connection.h"

#include <xcb/xfixes.h>

#include <string_view>

namespace zeigewerk::platform::x11 {

/// Whether some program owns a selection of the screen: owning it is how the one program that does a certain
/// service says that it is there.
class SelectionOwner : public QObject
{
    Q_OBJECT

public:
    /// `service` is the name without the number of the screen, such as "_NET_WM_CM_S".
    SelectionOwner(Connection &connection, std::string_view service);

    bool exists() const { return m_exists; }
    /// Whether events of that type tell that a selection changed hands.
    bool isChangeEvent(std::uint8_t eventType) const { return eventType == m_changeEvent; }
    /// Some selection changed hands.
    void ownerChanged(const xcb_xfixes_selection_notify_event_t &event);

Q_SIGNALS:
    /// `exists` has another answer.
    void changed();

private:
    bool ask() const;

    Connection &m_connection;
    xcb_atom_t m_selection;
    std::uint8_t m_changeEvent = 0;
    bool m_exists = false;
};

} // namespace zeigewerk::platform::x11
