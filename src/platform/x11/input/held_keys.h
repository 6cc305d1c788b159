#pragma once

#include <array>
#include <bitset>
#include <cstdint>
#include <span>

namespace zeigewerk::platform::x11 {

/// Tells the keys that were pressed while a window has the keyboard from those that were already held when it
/// got it: while such a key is held, the server repeats it to whoever has the keyboard by then, and the hand
/// meant somebody else.
class HeldKeys
{
public:
    /// One bit for each key code from 8 upwards, as a keymap notification has them.
    using Map = std::span<const std::uint8_t, 31>;

    /// A window has got the keyboard while these keys were held.
    void adopt(Map held);
    /// Whether the press is one for the window: the first one after a release, or a repeat of such a one.
    bool acceptPress(std::uint8_t key);
    void released(std::uint8_t key);

private:
    using Keys = std::bitset<256>;

    /// Held, and pressed into one of our windows.
    Keys m_own;
    /// Held, and pressed elsewhere.
    Keys m_foreign;
};

} // namespace zeigewerk::platform::x11
