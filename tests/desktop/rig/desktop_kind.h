// Selects the desktop that a test runs on.
#pragma once

namespace zeigewerk::rig {

enum class WindowManager { Openbox, Xfwm4, I3, None };
/// Only xfwm4 has a built-in compositor; with other window managers BuiltIn means Picom.
enum class Compositor { Picom, BuiltIn, None };

struct DesktopKind
{
    WindowManager windowManager = WindowManager::Openbox;
    Compositor compositor = Compositor::Picom;
};

/// The desktop named by ZEIGEWERK_TEST_DESKTOP: "openbox+picom" (the default), "xfwm4" with its own
/// compositor, "i3+picom", "picom" without a window manager, "openbox" without a compositor, or "none" for
/// neither. Throws RigError for any other name.
DesktopKind desktopFromEnvironment();

} // namespace zeigewerk::rig
