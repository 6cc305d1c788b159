// A system tray of the older kind (XEmbed), into which programs embed a window.
#pragma once

#include "client.h"

#include <QPoint>

#include <array>
#include <optional>

namespace zeigewerk::rig {

class DesktopSession;

/// Owns the selection of a system tray and embeds the windows that ask for it. It holds one icon, the latest.
/// Its events are handled on each call.
class EmbeddingTray
{
public:
    /// Not started yet. The icon will be at that place (native root pixels).
    EmbeddingTray(DesktopSession &session, QPoint place);

    /// Throws RigError if there already is a tray.
    void start();
    /// Releases the selection, destroys the tray's window, and returns the icon to its program.
    void stop();

    /// The icon, if it is docked and on the screen.
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
