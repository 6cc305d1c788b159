// What else happens on the desktop.

#include "actions.h"

namespace zeigewerk::rig {

namespace {

template <QString (OtherWindows::*operation)(RandomChoice &)>
QString neighbours(Playground &on, RandomChoice &chance)
{
    return (on.neighbours.*operation)(chance);
}

template <QString (DesktopChanges::*operation)(RandomChoice &)>
QString furniture(Playground &on, RandomChoice &chance)
{
    return (on.furniture.*operation)(chance);
}

template <QString (DesktopChanges::*operation)()>
QString furniture(Playground &on, RandomChoice &)
{
    return (on.furniture.*operation)();
}

QString restartWindowManager(Playground &on, RandomChoice &)
{
    // A new manager is known to work when it forgets a window; i3 never does if one beneath another that
    // fills the screen goes.
    if (on.neighbours.hasFullScreenWindow())
        return QStringLiteral("nothing, as a window is full-screen");
    return on.furniture.restartWindowManager();
}

} // namespace

std::vector<Action> desktopActions()
{
    return {{"a window opens", 25, neighbours<&OtherWindows::openWindow>},
            {"a window closes", 20, neighbours<&OtherWindows::closeWindow>},
            {"a window is activated", 20, neighbours<&OtherWindows::activateWindow>},
            {"a window takes the keyboard", 10, neighbours<&OtherWindows::takeKeyboard>},
            {"a window is raised", 20, neighbours<&OtherWindows::raiseWindow>},
            {"a window goes full screen or back", 15, neighbours<&OtherWindows::toggleFullScreen>},
            {"a popup opens", 15, neighbours<&OtherWindows::openPopup>},
            {"a popup closes", 15, neighbours<&OtherWindows::closePopup>},
            {"a popup is raised", 20, neighbours<&OtherWindows::raisePopup>},
            {"a popup takes the pointer or gives it back", 10, neighbours<&OtherWindows::togglePointerGrab>},
            {"screens change", 6, furniture<&DesktopChanges::changeScreens>},
            {"the compositor", 4, furniture<&DesktopChanges::toggleCompositor>},
            {"the window manager", 1, restartWindowManager},
            {"the tray", 5, furniture<&DesktopChanges::toggleTray>},
            {"a tray of the older kind", 4, furniture<&DesktopChanges::toggleEmbeddingTray>},
            {"the keyboard's map", 2, furniture<&DesktopChanges::switchKeyboardMap>},
            {"the tray", 12, furniture<&DesktopChanges::useTray>}};
}

} // namespace zeigewerk::rig
