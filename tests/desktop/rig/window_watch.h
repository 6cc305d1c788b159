// The coming and going of windows, however short their life is.
#pragma once

#include "client.h"

#include <QList>
#include <QRect>

namespace zeigewerk::rig {

class DesktopSession;

/// A top-level window that was made while somebody watched.
struct WatchedWindow
{
    xcb_window_t id = XCB_WINDOW_NONE;
    /// Native root pixels, without the X border; where the window was last.
    QRect geometry;
    bool wasShown = false;
    bool isShown = false;
    /// Whether it does not exist any more.
    bool isGone = false;
};

/// Told by the server of each window that is made, shown, hidden and destroyed from now on. Unlike asking
/// again and again which windows there are, this misses none.
class WindowWatch
{
public:
    explicit WindowWatch(DesktopSession &session);

    /// The windows in the order in which they were made.
    const QList<WatchedWindow> &windows();

private:
    void record(const xcb_generic_event_t &event);
    WatchedWindow *find(xcb_window_t id);

    Client m_client;
    QList<WatchedWindow> m_windows;
};

} // namespace zeigewerk::rig
