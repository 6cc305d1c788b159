#pragma once

#include "platform/x11/connection.h"

#include <QTimer>

#include <set>

namespace zeigewerk::platform::x11 {

/// Makes the compositor draw windows of ours that were hidden and shown again.
///
/// A busy compositor reads that a window was unmapped, mapped and painted all at once. It may then miss the
/// paint and not draw the window at all until the next one. So the reminder damages the window once more a
/// little later.
class RedrawReminder : public QObject
{
    Q_OBJECT

public:
    explicit RedrawReminder(Connection &connection);

    /// The window is mapped again, or is about to be.
    void windowComesBack(xcb_window_t window);
    /// The window is destroyed.
    void forget(xcb_window_t window) { m_windows.erase(window); }

private:
    void remind();
    void touch(xcb_window_t window);

    Connection &m_connection;
    std::set<xcb_window_t> m_windows;
    QTimer m_timer;
};

} // namespace zeigewerk::platform::x11
