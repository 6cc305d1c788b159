// Whether the program still handles its events.
#pragma once

#include "client.h"

#include <chrono>

namespace zeigewerk::rig {

class DesktopSession;
class Program;

/// Pings the program as a window manager does to detect a hang (_NET_WM_PING). Qt replies from its event
/// loop, which also handles the events of the canvases.
class PingProbe
{
public:
    explicit PingProbe(DesktopSession &session);

    /// Waits for two replies, because the second one comes after a complete iteration of the event loop.
    /// False if the program has ended, has no window that supports pings, or does not reply in time.
    bool isResponding(const Program &program, std::chrono::milliseconds deadline = std::chrono::seconds(60));

private:
    bool respondsOnce(const Program &program, std::chrono::milliseconds deadline);
    xcb_window_t windowOf(const Program &program);
    void ping(xcb_window_t window);
    bool hasReply();

    Client m_client;
    xcb_window_t m_window = XCB_WINDOW_NONE;
    std::uint32_t m_serial = 0;
};

} // namespace zeigewerk::rig
