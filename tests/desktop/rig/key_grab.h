// Another program that has grabbed a hot key. See KeyboardGrab for one that has grabbed the whole keyboard.
#pragma once

#include "client.h"
#include "key.h"

namespace zeigewerk::rig {

class DesktopSession;

/// Grabs a key combination on the root window for as long as it lives, whatever the state of Caps Lock and
/// Num Lock.
class KeyGrab
{
public:
    /// Throws RigError if another client has grabbed the combination.
    KeyGrab(DesktopSession &session, const Modifiers &modifiers, Key key);

    /// How often the combination has been pressed so far.
    int presses();

private:
    Client m_client;
    int m_presses = 0;
};

/// Whether another client has grabbed the combination in every state of the locks. Tested with a trial grab
/// that no other client can notice: it is released before the server handles other requests.
bool isGrabbedByAnother(DesktopSession &session, const Modifiers &modifiers, Key key);

} // namespace zeigewerk::rig
