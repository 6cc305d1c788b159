// A dock of the desktop, such as a task bar.
#pragma once

#include "client.h"

#include <QList>
#include <QRect>

namespace zeigewerk::rig {

class DesktopSession;

/// A managed window of the type dock that reserves strips along the edges of the desktop.
class Dock
{
public:
    /// `property` is "_NET_WM_STRUT_PARTIAL" or "_NET_WM_STRUT", `strut` its values. Waits until the window
    /// is on the screen and the window manager lists it; throws RigError if that does not happen.
    Dock(DesktopSession &session, const QRect &rect, const QByteArray &property, const QList<quint32> &strut);

    xcb_window_t id() const { return m_id; }

private:
    Client m_client;
    xcb_window_t m_id = XCB_WINDOW_NONE;
};

} // namespace zeigewerk::rig
