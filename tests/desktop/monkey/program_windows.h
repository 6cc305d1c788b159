// The program's windows on the screen.
#pragma once

#include "presentation.h"

#include <algorithm>

namespace zeigewerk::rig {

inline QList<WindowInfo> shownWindowsOf(DesktopSession &session, const Program &program)
{
    QList<WindowInfo> windows = session.client().windowsOfProcess(program.processId());
    windows.removeIf([](const WindowInfo &info) { return !info.viewable || info.inputOnly; });
    return windows;
}

inline bool isMenu(DesktopSession &session, const WindowInfo &window)
{
    Client &client = session.client();
    return client.property(window.id, "_NET_WM_WINDOW_TYPE")
        .contains(client.atom("_NET_WM_WINDOW_TYPE_POPUP_MENU"));
}

/// The toolbar's window with its shadow, if it is shown.
inline std::optional<WindowInfo> toolbarOf(DesktopSession &session, const Program &program)
{
    for (const WindowInfo &window : shownWindowsOf(session, program)) {
        const QSize size = window.geometry.size();
        if (size.width() < kSmallestScreenWidth && size.expandedTo(kToolbar) == size &&
            !isMenu(session, window))
            return window;
    }
    return std::nullopt;
}

} // namespace zeigewerk::rig
