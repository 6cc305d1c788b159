#include "window_watch.h"

#include "desktop_session.h"

#include <algorithm>

namespace zeigewerk::rig {

WindowWatch::WindowWatch(DesktopSession &session)
    : m_client(session.display().name())
{
    const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_client.connection(), m_client.root(), XCB_CW_EVENT_MASK, &mask);
    m_client.roundTrip();
}

const QList<WatchedWindow> &WindowWatch::windows()
{
    while (const auto event = owned(xcb_poll_for_event(m_client.connection())))
        record(*event);
    return m_windows;
}

void WindowWatch::record(const xcb_generic_event_t &event)
{
    constexpr int kSentFlag = 0x80;
    switch (event.response_type & ~kSentFlag) {
    case XCB_CREATE_NOTIFY: {
        const auto &created = reinterpret_cast<const xcb_create_notify_event_t &>(event);
        m_windows.append(
            {.id = created.window, .geometry = QRect(created.x, created.y, created.width, created.height)});
        return;
    }
    case XCB_CONFIGURE_NOTIFY: {
        const auto &moved = reinterpret_cast<const xcb_configure_notify_event_t &>(event);
        if (WatchedWindow *window = find(moved.window))
            window->geometry = QRect(moved.x, moved.y, moved.width, moved.height);
        return;
    }
    case XCB_MAP_NOTIFY:
        if (WatchedWindow *window = find(reinterpret_cast<const xcb_map_notify_event_t &>(event).window))
            window->isShown = window->wasShown = true;
        return;
    case XCB_UNMAP_NOTIFY:
        if (WatchedWindow *window = find(reinterpret_cast<const xcb_unmap_notify_event_t &>(event).window))
            window->isShown = false;
        return;
    case XCB_DESTROY_NOTIFY:
        if (WatchedWindow *window = find(reinterpret_cast<const xcb_destroy_notify_event_t &>(event).window))
            window->isGone = true;
        return;
    default:
        return;
    }
}

WatchedWindow *WindowWatch::find(xcb_window_t id)
{
    // Ids are reused, so search for the newest.
    const auto found = std::find_if(m_windows.rbegin(), m_windows.rend(),
                                    [id](const WatchedWindow &window) { return window.id == id; });
    return found == m_windows.rend() ? nullptr : &*found;
}

} // namespace zeigewerk::rig
