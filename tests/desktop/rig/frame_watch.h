// How often windows are painted on.
#pragma once

#include "client.h"

#include <QHash>
#include <QSet>

namespace zeigewerk::rig {

class DesktopSession;

/// Told by the server of everything that is painted on top-level windows that are made from now on, whether
/// anybody looks or not.
class FrameWatch
{
public:
    explicit FrameWatch(DesktopSession &session);

    /// Takes in what the server has told until now. A window that comes and goes in between is missed.
    void catchUp();
    /// How many pictures that window has shown: what is painted on it within the same millisecond is one.
    qsizetype frames(xcb_window_t window);

private:
    void record(const xcb_generic_event_t &event);

    Client m_client;
    std::uint8_t m_firstEvent = 0;
    /// The times, by window.
    QHash<xcb_window_t, QSet<xcb_timestamp_t>> m_frames;
};

} // namespace zeigewerk::rig
