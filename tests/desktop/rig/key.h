// Keys, named by their position rather than by what a keyboard map makes of them.
#pragma once

#include <QList>

#include <cstdint>

namespace zeigewerk::rig {

/// X key codes: the kernel's evdev codes + 8. Letters are named as on a US keyboard; the comment after a key
/// names what a German keyboard prints on it.
enum class Key : std::uint8_t {
    Escape = 1 + 8,
    Digit1 = 2 + 8,
    Digit2 = 3 + 8,
    Digit3 = 4 + 8,
    Digit4 = 5 + 8,
    Digit5 = 6 + 8,
    Digit6 = 7 + 8,
    Digit7 = 8 + 8,
    Digit8 = 9 + 8,
    Digit9 = 10 + 8,
    Digit0 = 11 + 8,
    Minus = 12 + 8, // ß
    Equal = 13 + 8, // dead acute accent, with Shift dead grave accent
    Backspace = 14 + 8,
    Tab = 15 + 8,
    Q = 16 + 8,
    W = 17 + 8,
    E = 18 + 8,
    R = 19 + 8,
    T = 20 + 8,
    Y = 21 + 8, // Z
    U = 22 + 8,
    I = 23 + 8,
    O = 24 + 8,
    P = 25 + 8,
    BracketLeft = 26 + 8, // ü
    Return = 28 + 8,
    Ctrl = 29 + 8,
    A = 30 + 8,
    S = 31 + 8,
    D = 32 + 8,
    F = 33 + 8,
    G = 34 + 8,
    H = 35 + 8,
    J = 36 + 8,
    K = 37 + 8,
    L = 38 + 8,
    Semicolon = 39 + 8,  // ö
    Apostrophe = 40 + 8, // ä
    Grave = 41 + 8,      // dead circumflex
    Shift = 42 + 8,
    Z = 44 + 8, // Y
    X = 45 + 8,
    C = 46 + 8,
    V = 47 + 8,
    B = 48 + 8,
    N = 49 + 8,
    M = 50 + 8,
    Comma = 51 + 8,
    Period = 52 + 8,
    Alt = 56 + 8,
    Space = 57 + 8,
    CapsLock = 58 + 8,
    F1 = 59 + 8,
    F4 = 62 + 8,
    F11 = 87 + 8,
    NumLock = 69 + 8,
    AltGr = 100 + 8,
    Home = 102 + 8,
    Up = 103 + 8,
    PageUp = 104 + 8,
    Left = 105 + 8,
    Right = 106 + 8,
    End = 107 + 8,
    Down = 108 + 8,
    PageDown = 109 + 8,
    Delete = 111 + 8,
    Super = 125 + 8,
};

/// Keys held while another one is tapped, in the order in which they are pressed.
using Modifiers = QList<Key>;

/// The bits of an X event's state for these modifiers; other keys set none.
std::uint16_t modifierMask(const Modifiers &modifiers);

} // namespace zeigewerk::rig
