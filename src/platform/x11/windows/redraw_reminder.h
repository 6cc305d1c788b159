#pragma once

#include "platform/x11/connection.h"

#include <QTimer>

#include <set>

namespace zeigewerk::platform::x11 {

/// Has the compositor draw our windows that went and came back.
///
/// A busy one finds at once that a window went, came, and was painted on. It may then take the picture for
/// one of before, and draw nothing of the window until that is painted on again: the whiteboard would be on,
/// and nobody see it. So such a window is touched once more, some time later.
class RedrawReminder : public QObject
{
    Q_OBJECT

public:
    explicit RedrawReminder(Connection &connection);

    /// That window is mapped again, or about to be.
    void windowComesBack(xcb_window_t window);
    /// That window is about to be destroyed.
    void forget(xcb_window_t window) { m_windows.erase(window); }

private:
    void remind();
    void touch(xcb_window_t window);

    Connection &m_connection;
    std::set<xcb_window_t> m_windows;
    QTimer m_timer;
};

} // namespace zeigewerk::platform::x11
