#pragma once

#include "platform/x11/screens.h"
#include "platform/x11/windows/stacking_order.h"
#include "platform/x11/windows/window_list.h"

#include <QElapsedTimer>
#include <QRect>
#include <QTimer>

#include <vector>

namespace zeigewerk::platform::x11 {

/// Keeps our windows in order: above the windows that other programs raise, but below a screen locker.
class Stacking : public QObject
{
    Q_OBJECT

public:
    Stacking(Connection &connection, const Screens &screens, const WindowList &ours);

    /// Puts all our shown windows in order. They need not be mapped yet.
    void restack();
    /// Puts one of our shown windows in its place, and moves no other. It need not be mapped yet.
    void insert(xcb_window_t window);
    /// A window was raised or mapped: checks a little later whether our windows are still in order.
    void checkSoon();
    /// One of our windows was hidden.
    void windowHidden();
    /// A child of the root window was changed, but not mapped.
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
