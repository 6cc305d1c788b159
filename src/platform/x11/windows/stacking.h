#pragma once

#include "platform/x11/screens.h"
#include "platform/x11/windows/stacking_order.h"
#include "platform/x11/windows/window_list.h"

#include <QElapsedTimer>
#include <QRect>
#include <QTimer>

#include <vector>

namespace zeigewerk::platform::x11 {

/// Keeps our windows in their order among themselves and above whatever other programs raise, save a screen
/// locker.
class Stacking : public QObject
{
    Q_OBJECT

public:
    Stacking(Connection &connection, const Screens &screens, const WindowList &ours);

    /// Puts our windows, mapped or not, in their order above the others.
    void restack();
    /// Puts one of our windows, which is not mapped yet, in its place among the others. They keep theirs:
    /// with hundreds of them, each new one would else move all.
    void insert(xcb_window_t window);
    /// Something was raised or mapped: looks a little later whether our order still holds.
    void checkSoon();
    /// One of our windows was hidden.
    void windowHidden();
    /// A structure event of the root window, other than that one of its children was mapped.
    void structureChanged(xcb_window_t window);
    /// A child of the root window was mapped.
    void windowMapped(xcb_window_t window);

private:
    WindowStack windowStack() const;
    std::vector<QRect> nativeScreens() const;
    /// `manager` is a window of the window manager's own; none without a window manager.
    std::vector<RootChild> rootChildren(std::span<const xcb_window_t> windows, xcb_window_t manager) const;
    void restackFrom(StackPlace lowest);
    void put(xcb_window_t window, StackPlace place);
    void check();

    Connection &m_connection;
    const Screens &m_screens;
    const WindowList &m_ours;
    QTimer m_check;
    QTimer m_trailingCheck;
    QElapsedTimer m_sinceCheck;
    QElapsedTimer m_sinceRestack;
};

} // namespace zeigewerk::platform::x11
