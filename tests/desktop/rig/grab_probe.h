// Whether anybody has pointer or keyboard to himself.
#pragma once

namespace zeigewerk::rig {

class DesktopSession;

/// Whether another program that asks for it would get it, which is found by a trial.
bool canGrabKeyboard(DesktopSession &session);
bool canGrabPointer(DesktopSession &session);

} // namespace zeigewerk::rig
