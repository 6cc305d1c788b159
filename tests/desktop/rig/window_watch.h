// Records windows that appear and disappear, however short-lived.
#pragma once

#include "client.h"

#include <QList>
#include <QRect>

namespace zeigewerk::rig {

class DesktopSession;

/// A top-level window that was created while this was watching.
struct WatchedWindow
{
    xcb_window_t id = XCB_WINDOW_NONE;
    /// Native root pixels, without the X border; the last known place.
    QRect geometry;
    bool wasShown = false;
    bool isShown = false;
    /// Whether it has been destroyed.
    bool isGone = false;
};

/// Receives the server's events for each window that is created, shown, hidden or destroyed from now on.
/// Unlike polling, this misses none.
class WindowWatch
{
public:
    explicit WindowWatch(DesktopSession &session);

    /// The windows in the order of their creation.
    const QList<WatchedWindow> &windows();

private:
    void record(const xcb_generic_event_t &event);
    WatchedWindow *find(xcb_window_t id);

    Client m_client;
    QList<WatchedWindow> m_windows;
};

} // namespace zeigewerk::rig
