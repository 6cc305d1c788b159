// An unmanaged window of another program: a menu, or a screen locker.
#pragma once

#include "client.h"

#include <QColor>
#include <QRect>

namespace zeigewerk::rig {

class DesktopSession;

/// An override-redirect window of one colour that opens on top of everything.
class Popup
{
public:
    /// Returns once the window is viewable.
    Popup(DesktopSession &session, const QRect &rect, const QColor &color);

    xcb_window_t id() const { return m_id; }
    /// Raises it above everything again.
    void raise() const;
    /// Moves it directly below another one.
    void lowerBelow(const Popup &other) const;

    /// Grabs the pointer as a menu does: this program alone receives all presses. False if another program
    /// has grabbed it.
    bool grabPointer() const;
    void ungrabPointer() const;
    /// How many presses it has received since it grabbed the pointer.
    int presses() const;

private:
    mutable Client m_client;
    xcb_window_t m_id = XCB_WINDOW_NONE;
    mutable int m_presses = 0;
};

} // namespace zeigewerk::rig
