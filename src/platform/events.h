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
    /// the device delivers. Outside the surface while a drag leaves it.
    QPointF position;
    Modifiers modifiers;
};

/// A key pressed while the surface has the keyboard.
struct KeyEvent
{
    /// Esc as the keyboard layout has it, wherever it lies.
    bool isEscape = false;
    /// The character that the key stands for in the layout without Ctrl, Alt and Super; 0 for none. With Ctrl
    /// or Super, a key of other letters stands for the Latin one of another layout of the user's.
    char32_t character = 0;
    Modifiers modifiers;
};

/// A step of the wheel, or of two fingers on a touchpad, over the surface.
struct ScrollEvent
{
    /// Upwards positive. In notches of the wheel; in points where the device measures finer than a notch.
    double distance = 0.0;
    /// Whether it is in points.
    bool isPrecise = false;
    Modifiers modifiers;
};

/// Where a key lies on the keyboard, whatever the layout writes on it. The values are the evdev codes of
/// linux/input-event-codes.h, which X11 (plus 8) and Wayland share.
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
