// The keyboard of a virtual display.
#pragma once

#include "key.h"

class QString;

namespace zeigewerk::rig {

class Client;

/// Real key events through XTest. Each operation returns once the server has delivered its events. A key that
/// stays pressed repeats, as on a real keyboard.
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
    /// Types the text by its positions on a US keyboard, upper case with Shift: letters, digits, space, comma
    /// and period. Throws RigError for other characters.
    void type(const QString &text);

    /// Whether Key::CapsLock or Key::NumLock is on; false for other keys.
    bool lock(Key key) const;
    /// Turns one of them on or off by tapping its key if needed; false if that had no effect.
    bool setLock(Key key, bool on);

private:
    void fake(int type, Key key);

    Client &m_client;
};

} // namespace zeigewerk::rig
