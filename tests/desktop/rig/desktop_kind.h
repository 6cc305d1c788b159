// Which of the desktops in the world a test runs on.
#pragma once

namespace zeigewerk::rig {

enum class WindowManager { Openbox, Xfwm4, I3, None };
/// The window manager brings one along only if it is xfwm4; with others Picom is meant then.
enum class Compositor { Picom, BuiltIn, None };

struct DesktopKind
{
    WindowManager windowManager = WindowManager::Openbox;
    Compositor compositor = Compositor::Picom;
};

/// The desktop that ZEIGEWERK_TEST_DESKTOP names: "openbox+picom", which is meant if it is not set, "xfwm4"
/// with the compositor of its own, "i3+picom", "picom" without a window manager, "openbox" without a
/// compositor, or "none" of either. Throws RigError if it names another.
DesktopKind desktopFromEnvironment();

} // namespace zeigewerk::rig
