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

    QString openWindow(RandomChoice &chance);
    QString closeWindow(RandomChoice &chance);
    /// As a click in the task bar does.
    QString activateWindow(RandomChoice &chance);
    /// Past the window manager.
    QString takeKeyboard(RandomChoice &chance);
    QString raiseWindow(RandomChoice &chance);
    QString toggleFullScreen(RandomChoice &chance);
    bool hasFullScreenWindow();

    QString openPopup(RandomChoice &chance);
    QString closePopup(RandomChoice &chance);
    QString raisePopup(RandomChoice &chance);
    /// Takes the pointer as a menu does, or gives it back.
    QString togglePointerGrab(RandomChoice &chance);

    /// Closes everything.
    void leave();

private:
    /// None if there is no window.
    xcb_window_t anyWindow(RandomChoice &chance);
    Popup *anyPopup(RandomChoice &chance);

    DesktopSession &m_session;
    /// One for all of them: the server hands out the ids of a connection that has ended again, and a window
    /// manager that has yet to hear of that takes the next windows for the old ones.
    Client m_client;
    std::vector<xcb_window_t> m_windows;
    std::vector<std::unique_ptr<Popup>> m_popups;
    Popup *m_grabber = nullptr;
};

} // namespace zeigewerk::rig
