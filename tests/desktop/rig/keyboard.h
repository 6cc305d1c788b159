// The keyboard of a virtual display.
#pragma once

#include "key.h"

class QString;

namespace zeigewerk::rig {

class Client;

/// Real key events through XTest. Each operation comes back when the server has delivered its events. A key
/// that stays pressed repeats by itself after a while, as a real one does.
class Keyboard
{
public:
    explicit Keyboard(Client &client)
        : m_client(client)
    {
    }

    void press(Key key);
    void release(Key key);
    /// A press and a release.
    void tap(Key key);
    /// Presses the modifiers in order, taps the key, and releases the modifiers in the opposite order.
    void chord(const Modifiers &modifiers, Key key);
    /// Taps the places that give this text on a US keyboard, upper case with Shift. Letters, digits, space,
    /// comma and period; throws RigError on others.
    void type(const QString &text);

    /// Whether Key::CapsLock or Key::NumLock is on; false for other keys.
    bool lock(Key key) const;
    /// Turns one of them on or off by tapping its key, if it is not already so; false if that did not help.
    bool setLock(Key key, bool on);

private:
    void fake(int type, Key key);

    Client &m_client;
};

} // namespace zeigewerk::rig
