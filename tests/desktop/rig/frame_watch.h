// Counts how often windows are painted.
#pragma once

#include "client.h"

#include <QHash>
#include <QSet>

namespace zeigewerk::rig {

class DesktopSession;

/// Receives the server's Damage events for every top-level window created from now on.
class FrameWatch
{
public:
    explicit FrameWatch(DesktopSession &session);

    /// Reads the server's pending events. A window that is created and destroyed between two calls is missed.
    void catchUp();
    /// How many frames the window has shown: everything painted within the same millisecond is one frame.
    qsizetype frames(xcb_window_t window);

private:
    void record(const xcb_generic_event_t &event);

    Client m_client;
    std::uint8_t m_firstEvent = 0;
    /// The times of the frames, by window.
    QHash<xcb_window_t, QSet<xcb_timestamp_t>> m_frames;
};

} // namespace zeigewerk::rig
