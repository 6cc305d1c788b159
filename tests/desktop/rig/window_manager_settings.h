// The configuration files of the window managers.
#pragma once

#include <QDir>
#include <QString>

namespace zeigewerk::rig {

/// Configures xfwm4 without hot keys (by default Ctrl+Alt+D shows the desktop), without zooming the screen on
/// Alt and the wheel, and without shadows, which would fall on neighbouring windows.
void writeXfwm4Settings(const QDir &home);

/// Gives openbox an empty menu: its default one can end it and start installed programs.
void writeOpenboxSettings(const QDir &home);

/// Writes a configuration for i3, which starts a wizard without one, and returns its path. Windows float as
/// on other desktops, because a tiled window has the size that i3 chooses. The focus does not follow the
/// pointer; otherwise it would move whenever a canvas under the pointer disappears.
QString writeI3Settings(const QDir &home);

} // namespace zeigewerk::rig
