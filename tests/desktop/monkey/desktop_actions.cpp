// The monkey's actions on the desktop around the program.

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
    // restartWindowManager() waits until the new manager has forgotten a destroyed window. i3 never forgets
    // one beneath a full-screen window.
    if (context.windows.hasFullScreenWindow())
        return QStringLiteral("skipped: a window is full-screen");
    return context.desktop.restartWindowManager();
}

} // namespace

std::vector<Action> desktopActions()
{
    // A table, one row per line:
    // clang-format off
    return {
        {"open a window",                 25, windows<&OtherWindows::openWindow>},
        {"close a window",                20, windows<&OtherWindows::closeWindow>},
        {"activate a window",             20, windows<&OtherWindows::activateWindow>},
        {"focus a window",                10, windows<&OtherWindows::takeKeyboard>},
        {"raise a window",                20, windows<&OtherWindows::raiseWindow>},
        {"toggle full screen",            15, windows<&OtherWindows::toggleFullScreen>},
        {"open a popup",                  15, windows<&OtherWindows::openPopup>},
        {"close a popup",                 15, windows<&OtherWindows::closePopup>},
        {"raise a popup",                 20, windows<&OtherWindows::raisePopup>},
        {"toggle a popup's pointer grab", 10, windows<&OtherWindows::togglePointerGrab>},
        {"change the screens",            6,  desktop<&DesktopChanges::changeScreens>},
        {"toggle the compositor",         4,  desktop<&DesktopChanges::toggleCompositor>},
        {"restart the window manager",    1,  restartWindowManager},
        {"toggle the tray",               5,  desktop<&DesktopChanges::toggleTray>},
        {"toggle the embedding tray",     4,  desktop<&DesktopChanges::toggleEmbeddingTray>},
        {"switch the keyboard map",       2,  desktop<&DesktopChanges::switchKeyboardMap>},
        {"use the tray",                  12, desktop<&DesktopChanges::useTray>},
    };
    // clang-format on
}

} // namespace zeigewerk::rig
