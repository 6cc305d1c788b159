// A window of another program that no window manager looks after: a menu, or a screen locker.
#pragma once

#include "client.h"

#include <QColor>
#include <QRect>

namespace zeigewerk::rig {

class DesktopSession;

/// An override-redirect window of one colour, put on top of everything when it is shown.
class Popup
{
public:
    /// Comes back when the window is viewable.
    Popup(DesktopSession &session, const QRect &rect, const QColor &color);

    xcb_window_t id() const { return m_id; }
    /// Puts it on top of everything again.
    void raise() const;
    /// Puts it right below another one.
    void lowerBelow(const Popup &other) const;

    /// Takes the pointer as a menu does: whatever is pressed and wherever, this program alone is told. False
    /// if another program has it.
    bool grabPointer() const;
    void ungrabPointer() const;
    /// How many presses it was told of since it took the pointer.
    int presses() const;

private:
    mutable Client m_client;
    xcb_window_t m_id = XCB_WINDOW_NONE;
    mutable int m_presses = 0;
};

} // namespace zeigewerk::rig
