// Finds out whether the keyboard or the pointer is grabbed.
#pragma once

namespace zeigewerk::rig {

class DesktopSession;

/// Whether another program could grab it now. Tried with a grab on a connection of its own.
bool canGrabKeyboard(DesktopSession &session);
bool canGrabPointer(DesktopSession &session);

} // namespace zeigewerk::rig
