#pragma once

#include <array>
#include <bitset>
#include <cstdint>
#include <span>

namespace zeigewerk::platform::x11 {

/// Recognises key presses that are not meant for our windows: repeats of keys that were already held when a
/// window got the keyboard. The server sends repeats to the window that has the keyboard now.
class HeldKeys
{
public:
    /// One bit per key code from 8 up, as in a keymap notification.
    using Map = std::span<const std::uint8_t, 31>;

    /// A window of ours has got the keyboard while these keys were held.
    void adopt(Map held);
    /// Returns whether the press is meant for the window: the first after a release, or a repeat of such a
    /// press.
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
