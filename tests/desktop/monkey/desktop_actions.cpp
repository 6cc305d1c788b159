// What else happens on the desktop.

#include "actions.h"

namespace zeigewerk::rig {

namespace {

template <QString (OtherWindows::*operation)(RandomChoice &)>
QString windows(ActionContext &context, RandomChoice &random)
{
    return (context.windows.*operation)(random);
}

template <QString (DesktopChanges::*operation)(RandomChoice &)>
QString desktop(ActionContext &context, RandomChoice &random)
{
    return (context.desktop.*operation)(random);
}

template <QString (DesktopChanges::*operation)()>
QString desktop(ActionContext &context, RandomChoice &)
{
    return (context.desktop.*operation)();
}

QString restartWindowManager(ActionContext &context, RandomChoice &)
{
    // A new manager is known to work when it forgets a window; i3 never does if one beneath another that
    // fills the screen goes.
    if (context.windows.hasFullScreenWindow())
        return QStringLiteral("nothing, as a window is full-screen");
    return context.desktop.restartWindowManager();
}

} // namespace

std::vector<Action> desktopActions()
{
    return {{"a window opens", 25, windows<&OtherWindows::openWindow>},
            {"a window closes", 20, windows<&OtherWindows::closeWindow>},
            {"a window is activated", 20, windows<&OtherWindows::activateWindow>},
            {"a window takes the keyboard", 10, windows<&OtherWindows::takeKeyboard>},
            {"a window is raised", 20, windows<&OtherWindows::raiseWindow>},
            {"a window goes full screen or back", 15, windows<&OtherWindows::toggleFullScreen>},
            {"a popup opens", 15, windows<&OtherWindows::openPopup>},
            {"a popup closes", 15, windows<&OtherWindows::closePopup>},
            {"a popup is raised", 20, windows<&OtherWindows::raisePopup>},
            {"a popup takes the pointer or gives it back", 10, windows<&OtherWindows::togglePointerGrab>},
            {"screens change", 6, desktop<&DesktopChanges::changeScreens>},
            {"the compositor", 4, desktop<&DesktopChanges::toggleCompositor>},
            {"the window manager", 1, restartWindowManager},
            {"the tray", 5, desktop<&DesktopChanges::toggleTray>},
            {"a tray of the older kind", 4, desktop<&DesktopChanges::toggleEmbeddingTray>},
            {"the keyboard's map", 2, desktop<&DesktopChanges::switchKeyboardMap>},
            {"the tray", 12, desktop<&DesktopChanges::useTray>}};
}

} // namespace zeigewerk::rig
