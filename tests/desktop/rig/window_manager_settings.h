// What window managers are told before they start.
#pragma once

#include <QDir>
#include <QString>

namespace zeigewerk::rig {

/// Writes settings with which xfwm4 takes no keys, as on its own it takes Ctrl+Alt+D, to show the desktop,
/// does not enlarge the whole screen at a wheel with Alt, and paints no shadows: those of a window would lie
/// on the one beside it.
void writeXfwm4Settings(const QDir &home);

/// Writes a menu for openbox without any entries: on its own it has one that ends it, and others that start
/// what is installed.
void writeOpenboxSettings(const QDir &home);

/// Writes a configuration for i3, which opens a wizard without one, and returns its path. Windows float, as
/// elsewhere: a tiling one would have the size that i3 wants. And the keyboard goes nowhere because the
/// pointer came there, which would happen whenever a canvas goes from under it.
QString writeI3Settings(const QDir &home);

} // namespace zeigewerk::rig
