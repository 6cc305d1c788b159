#pragma once

#include "platform/x11/connection.h"

#include <xcb/xfixes.h>

#include <string_view>

namespace zeigewerk::platform::x11 {

/// Whether a program owns a selection of the X screen. The program that provides a certain service, such as
/// compositing, owns a selection to say so.
class SelectionOwner : public QObject
{
    Q_OBJECT

public:
    /// `service` is the selection's name without the screen number, such as "_NET_WM_CM_S".
    SelectionOwner(Connection &connection, std::string_view service);

    bool exists() const { return m_exists; }
    /// Whether events of that type report a new owner of a selection.
    bool isChangeEvent(std::uint8_t eventType) const { return eventType == m_changeEvent; }
    /// Some selection has a new owner. Checks whether it is this one.
    void ownerChanged(const xcb_xfixes_selection_notify_event_t &event);

Q_SIGNALS:
    /// The result of `exists` has changed.
    void changed();

private:
    bool ask() const;

    Connection &m_connection;
    xcb_atom_t m_selection;
    std::uint8_t m_changeEvent = 0;
    bool m_exists = false;
};

} // namespace zeigewerk::platform::x11
