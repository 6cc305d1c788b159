// Other programs' windows, which open and close at any time.
#pragma once

#include "popup.h"
#include "random_choice.h"

#include <QRect>
#include <QString>

#include <memory>
#include <vector>

namespace zeigewerk::rig {

class DesktopSession;

/// Managed windows and unmanaged popups. No operation waits for its effect: the final place of a window is up
/// to the window manager. Each returns a description of what it did; without a suitable window it does
/// nothing.
class OtherWindows
{
public:
    explicit OtherWindows(DesktopSession &session);

    QString openWindow(RandomChoice &random);
    QString closeWindow(RandomChoice &random);
    /// As a click in the task bar does.
    QString activateWindow(RandomChoice &random);
    /// Bypassing the window manager.
    QString takeKeyboard(RandomChoice &random);
    QString raiseWindow(RandomChoice &random);
    QString toggleFullScreen(RandomChoice &random);
    bool hasFullScreenWindow();

    QString openPopup(RandomChoice &random);
    QString closePopup(RandomChoice &random);
    QString raisePopup(RandomChoice &random);
    /// Grabs the pointer as a menu does, or releases it.
    QString togglePointerGrab(RandomChoice &random);

    void closeAll();

private:
    /// XCB_WINDOW_NONE if there is none.
    xcb_window_t randomWindow(RandomChoice &random);
    Popup *randomPopup(RandomChoice &random);

    DesktopSession &m_session;
    /// Shared by all windows: the server reuses the ids of a closed connection, and a window manager that has
    /// not yet noticed its end would confuse new windows with old ones.
    Client m_client;
    std::vector<xcb_window_t> m_windows;
    std::vector<std::unique_ptr<Popup>> m_popups;
    Popup *m_grabber = nullptr;
};

} // namespace zeigewerk::rig
