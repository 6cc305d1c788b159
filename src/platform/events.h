#pragma once

#include <QFlags>
#include <QPointF>

namespace zeigewerk::platform {

enum class Modifier {
    Shift = 1 << 0,
    Ctrl = 1 << 1,
    Alt = 1 << 2,
    Super = 1 << 3,
};
Q_DECLARE_FLAGS(Modifiers, Modifier)
Q_DECLARE_OPERATORS_FOR_FLAGS(Modifiers)

/// The left button pressed, released, or the pointer moved while it is held.
struct PointerEvent
{
    /// View coordinates of the surface: points, origin at the bottom left, y up, with the sub-pixel part that
    /// the device delivers. A drag may leave the surface.
    QPointF position;
    Modifiers modifiers;
    /// The same place in points, global coordinates, y up.
    QPointF globalPosition = {};
};

/// A key pressed while the surface has the keyboard.
struct KeyEvent
{
    /// Whether the keyboard layout has Esc on this key.
    bool isEscape = false;
    /// The character of the key in the layout without Ctrl, Alt and Super; 0 for none. With Ctrl or Super, a
    /// key of a non-Latin layout has the Latin letter that another of the user's layouts has on it.
    char32_t character = 0;
    Modifiers modifiers;
};

/// A step of the wheel, or of two fingers on a touchpad.
struct ScrollEvent
{
    /// Upwards positive. In notches of the wheel, or in points if precise.
    double distance = 0.0;
    /// Whether the device measures finer than a notch.
    bool isPrecise = false;
    Modifiers modifiers;
    /// Where the pointer is: points, global coordinates, y up.
    QPointF globalPosition = {};
};

/// The place of a key on the keyboard, whichever character the layout assigns to it. The values are the evdev
/// codes of linux/input-event-codes.h, which X11 (plus 8) and Wayland share.
enum class PhysicalKey {
    Escape = 1,
    W = 17,
    T = 20,
    P = 25,
    S = 31,
    D = 32,
    K = 37,
};

} // namespace zeigewerk::platform
