// A tray of the older kind, in which programs embed a window of theirs.
#pragma once

#include "client.h"

#include <QPoint>

#include <array>
#include <optional>

namespace zeigewerk::rig {

class DesktopSession;

/// Owns the selection of a system tray and takes the windows that ask to be docked. It holds one icon, the
/// latest; its events are handled whenever it is asked something.
class EmbeddingTray
{
public:
    /// Not started yet. The icon will lie at that place (native root pixels).
    EmbeddingTray(DesktopSession &session, QPoint place);

    /// Throws RigError if another tray is there.
    void start();
    /// Gives the selection up; its window goes, and the icon back to its program.
    void stop();

    /// The icon that is docked and on the screen.
    std::optional<WindowInfo> icon();

private:
    void dock(xcb_window_t icon);
    void handleEvents();
    void send(xcb_window_t receiver, xcb_window_t about, const QByteArray &type, std::uint32_t mask,
              const std::array<std::uint32_t, 5> &data);

    DesktopSession &m_session;
    Client m_client;
    QPoint m_place;
    xcb_window_t m_window = XCB_WINDOW_NONE;
    xcb_window_t m_icon = XCB_WINDOW_NONE;
};

} // namespace zeigewerk::rig
