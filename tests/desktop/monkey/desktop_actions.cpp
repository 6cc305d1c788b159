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
    // clang-format off: a table, one row a line
    return {
        {.name = "open a window", .weight = 25, .perform = windows<&OtherWindows::openWindow>},
        {.name = "close a window", .weight = 20, .perform = windows<&OtherWindows::closeWindow>},
        {.name = "activate a window", .weight = 20, .perform = windows<&OtherWindows::activateWindow>},
        {.name = "focus a window", .weight = 10, .perform = windows<&OtherWindows::takeKeyboard>},
        {.name = "raise a window", .weight = 20, .perform = windows<&OtherWindows::raiseWindow>},
        {.name = "toggle full screen", .weight = 15, .perform = windows<&OtherWindows::toggleFullScreen>},
        {.name = "open a popup", .weight = 15, .perform = windows<&OtherWindows::openPopup>},
        {.name = "close a popup", .weight = 15, .perform = windows<&OtherWindows::closePopup>},
        {.name = "raise a popup", .weight = 20, .perform = windows<&OtherWindows::raisePopup>},
        {.name = "toggle a popup's pointer grab",
         .weight = 10,
         .perform = windows<&OtherWindows::togglePointerGrab>},
        {.name = "change the screens", .weight = 6, .perform = desktop<&DesktopChanges::changeScreens>},
        {.name = "toggle the compositor", .weight = 4, .perform = desktop<&DesktopChanges::toggleCompositor>},
        {.name = "restart the window manager", .weight = 1, .perform = restartWindowManager},
        {.name = "toggle the tray", .weight = 5, .perform = desktop<&DesktopChanges::toggleTray>},
        {.name = "toggle the embedding tray",
         .weight = 4,
         .perform = desktop<&DesktopChanges::toggleEmbeddingTray>},
        {.name = "switch the keyboard map",
         .weight = 2,
         .perform = desktop<&DesktopChanges::switchKeyboardMap>},
        {.name = "use the tray", .weight = 12, .perform = desktop<&DesktopChanges::useTray>},
    };
    // clang-format on
}

} // namespace zeigewerk::rig
