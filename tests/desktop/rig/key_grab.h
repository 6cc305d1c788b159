// Another program that wants the same key combination.
#pragma once

#include "client.h"
#include "key.h"

namespace zeigewerk::rig {

class DesktopSession;

/// Holds a combination on the root, whatever the state of Caps Lock and Num Lock, as long as it lives.
class KeyGrab
{
public:
    /// Throws RigError if another client has the combination already.
    KeyGrab(DesktopSession &session, const Modifiers &modifiers, Key key);

    /// How many times the combination was pressed so far.
    int presses();

private:
    Client m_client;
    int m_presses = 0;
};

/// Whether some other client holds the combination in every state of the locks. Found by a trial grab, which
/// no other client can notice: it is given back before the server listens to anyone else.
bool isGrabbedByAnother(DesktopSession &session, const Modifiers &modifiers, Key key);

} // namespace zeigewerk::rig
