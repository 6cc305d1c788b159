// The windows of other programs, which come and go as they like.
#pragma once

#include "popup.h"
#include "random_choice.h"

#include <QRect>
#include <QString>

#include <memory>
#include <vector>

namespace zeigewerk::rig {

class DesktopSession;

/// Managed windows, and popups that no window manager looks after. Nothing here waits for what it asks: where
/// a window really goes is the window manager's business. Each operation says what it did; without any window
/// to do it with, that is nothing.
class OtherWindows
{
public:
    explicit OtherWindows(DesktopSession &session);

    QString openWindow(RandomChoice &random);
    QString closeWindow(RandomChoice &random);
    /// As a click in the task bar does.
    QString activateWindow(RandomChoice &random);
    /// Past the window manager.
    QString takeKeyboard(RandomChoice &random);
    QString raiseWindow(RandomChoice &random);
    QString toggleFullScreen(RandomChoice &random);
    bool hasFullScreenWindow();

    QString openPopup(RandomChoice &random);
    QString closePopup(RandomChoice &random);
    QString raisePopup(RandomChoice &random);
    /// Takes the pointer as a menu does, or gives it back.
    QString togglePointerGrab(RandomChoice &random);

    /// Closes everything.
    void closeAll();

private:
    /// None if there is no window.
    xcb_window_t randomWindow(RandomChoice &random);
    Popup *randomPopup(RandomChoice &random);

    DesktopSession &m_session;
    /// One for all of them: the server hands out the ids of a connection that has ended again, and a window
    /// manager that has yet to hear of that takes the next windows for the old ones.
    Client m_client;
    std::vector<xcb_window_t> m_windows;
    std::vector<std::unique_ptr<Popup>> m_popups;
    Popup *m_grabber = nullptr;
};

} // namespace zeigewerk::rig
