// What else happens on the desktop.

#include "actions.h"

namespace zeigewerk::rig {

namespace {

template <QString (Neighbours::*operation)(Chance &)>
QString neighbours(Playground &on, Chance &chance)
{
    return (on.neighbours.*operation)(chance);
}

template <QString (Furniture::*operation)(Chance &)>
QString furniture(Playground &on, Chance &chance)
{
    return (on.furniture.*operation)(chance);
}

template <QString (Furniture::*operation)()>
QString furniture(Playground &on, Chance &)
{
    return (on.furniture.*operation)();
}

QString restartWindowManager(Playground &on, Chance &)
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
    return {{"a window opens", 25, neighbours<&Neighbours::openWindow>},
            {"a window closes", 20, neighbours<&Neighbours::closeWindow>},
            {"a window is activated", 20, neighbours<&Neighbours::activateWindow>},
            {"a window takes the keyboard", 10, neighbours<&Neighbours::takeKeyboard>},
            {"a window is raised", 20, neighbours<&Neighbours::raiseWindow>},
            {"a window goes full screen or back", 15, neighbours<&Neighbours::toggleFullScreen>},
            {"a popup opens", 15, neighbours<&Neighbours::openPopup>},
            {"a popup closes", 15, neighbours<&Neighbours::closePopup>},
            {"a popup is raised", 20, neighbours<&Neighbours::raisePopup>},
            {"a popup takes the pointer or gives it back", 10, neighbours<&Neighbours::togglePointerGrab>},
            {"screens change", 6, furniture<&Furniture::changeScreens>},
            {"the compositor", 4, furniture<&Furniture::toggleCompositor>},
            {"the window manager", 1, restartWindowManager},
            {"the tray", 5, furniture<&Furniture::toggleTray>},
            {"a tray of the older kind", 4, furniture<&Furniture::toggleEmbeddingTray>},
            {"the keyboard's map", 2, furniture<&Furniture::switchKeyboardMap>},
            {"the tray", 12, furniture<&Furniture::useTray>}};
}

} // namespace zeigewerk::rig
