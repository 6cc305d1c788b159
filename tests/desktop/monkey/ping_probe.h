// Whether the program still handles its events.
#pragma once

#include "client.h"

#include <chrono>

namespace zeigewerk::rig {

class DesktopSession;
class Program;

/// Asks as a window manager does that wants to know whether a program hangs (_NET_WM_PING). Qt answers where
/// it handles events; those of the canvases are handled in the same loop.
class PingProbe
{
public:
    explicit PingProbe(DesktopSession &session);

    /// Comes back when the program has answered twice, as the second answer comes after a whole turn of its
    /// loop. False if it ended, has no window that is asked so, or does not answer in time.
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
