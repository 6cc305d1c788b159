#pragma once

#include "drawing/color.h"

namespace zeigewerk {

/// The colours of the toolbar in one of its two appearances, and the symbol and tooltip of the button that
/// switches to the other.
struct ToolbarLook
{
    /// The panel itself. It is opaque enough for the symbols to stay legible over any content, even if the
    /// compositor does not blur it.
    Color backdrop;
    /// A hairline along the panel's edge, which sets it off from a background of the same colour.
    Color edge;
    Color separator;
    Color grip;
    /// The symbols on all buttons except modes that are on.
    Color content;
    /// The background of the chosen tool and of the chosen width.
    Color choice;
    /// The border of a swatch that is not chosen.
    Color swatchBorder;
    /// Laid over a button's background while the pointer is on it, and while it is held down.
    Color hovered;
    Color pressed;
    const char *switchSymbol;
    const char *switchTip;
};

inline constexpr ToolbarLook kDarkLook = {
    .backdrop = Color::hex(0x2A2C31).withAlpha(0.94),
    .edge = kWhite.withAlpha(0.14),
    .separator = kWhite.withAlpha(0.16),
    .grip = kWhite.withAlpha(0.35),
    .content = kWhite,
    .choice = kWhite.withAlpha(0.25),
    .swatchBorder = kWhite.withAlpha(0.4),
    .hovered = kWhite.withAlpha(0.12),
    .pressed = kBlack.withAlpha(0.25),
    .switchSymbol = "sun.max.fill",
    .switchTip = "Werkzeugleiste auf hell umschalten",
};

inline constexpr ToolbarLook kLightLook = {
    .backdrop = Color::hex(0xF4F4F6).withAlpha(0.95),
    .edge = kBlack.withAlpha(0.14),
    .separator = kBlack.withAlpha(0.12),
    .grip = kBlack.withAlpha(0.3),
    .content = kBlack.withAlpha(0.8),
    .choice = kBlack.withAlpha(0.12),
    .swatchBorder = kBlack.withAlpha(0.25),
    .hovered = kBlack.withAlpha(0.07),
    .pressed = kBlack.withAlpha(0.18),
    .switchSymbol = "moon.fill",
    .switchTip = "Werkzeugleiste auf dunkel umschalten",
};

constexpr const ToolbarLook &toolbarLook(bool dark)
{
    return dark ? kDarkLook : kLightLook;
}

} // namespace zeigewerk
