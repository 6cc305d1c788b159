#pragma once

#include "core/app_delegate.h"

#include <array>
#include <cstdint>

namespace zeigewerk {

/// "ZGWK": the program's own four-character code, which all its hot keys carry.
inline constexpr std::uint32_t kHotKeySignature = 0x5A47574B;

struct HotKeyRow
{
    std::uint32_t number = 0;
    platform::PhysicalKey key;
    platform::Modifiers modifiers;
    void (AppDelegate::*operation)();
    QStringView description;

    constexpr platform::HotKeyId id() const { return {kHotKeySignature, number}; }
    constexpr platform::HotKey hotKey() const
    {
        return {.id = id(), .key = key, .modifiers = modifiers, .description = description};
    }
};

inline constexpr platform::Modifiers kCtrlAlt = platform::Modifier::Ctrl | platform::Modifier::Alt;

/// The hot keys of the whole run, in the order of their registration. One row per line:
// clang-format off
inline constexpr std::array<HotKeyRow, 6> kHotKeyTable = {{
    {1, platform::PhysicalKey::D, kCtrlAlt, &AppDelegate::toggleDraw,    u"Zeichnen ein/aus"},
    {2, platform::PhysicalKey::S, kCtrlAlt, &AppDelegate::toggleSpot,    u"Spotlight ein/aus"},
    {3, platform::PhysicalKey::W, kCtrlAlt, &AppDelegate::toggleBoard,   u"Whiteboard ein/aus"},
    {4, platform::PhysicalKey::K, kCtrlAlt, &AppDelegate::toggleClicks,  u"Klicks anzeigen ein/aus"},
    {5, platform::PhysicalKey::T, kCtrlAlt, &AppDelegate::toggleToolbar, u"Werkzeugleiste ein-/ausblenden"},
    {6, platform::PhysicalKey::P, kCtrlAlt, &AppDelegate::togglePin,     u"Zeichnung anpinnen/lösen"},
}};
// clang-format on

/// Esc is taken from the other applications only while the spotlight is on. While drawing is off, the
/// overlays let the keyboard through, and would not see it.
inline constexpr HotKeyRow kEscHotKey = {
    99, platform::PhysicalKey::Escape, {}, &AppDelegate::escapePressed, u"Zeichnen und Spotlight beenden"};

} // namespace zeigewerk
