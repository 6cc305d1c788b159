#pragma once

#include "platform/desktop.h"

#include <array>
#include <cstdint>

namespace zeigewerk {

/// "ZGWK": the program's own four-character code, which all its hot keys carry.
inline constexpr std::uint32_t kHotKeySignature = 0x5A47574B;

struct HotKeyRow
{
    std::uint32_t number;
    platform::PhysicalKey key;
    platform::Modifiers modifiers;

    constexpr platform::HotKeyId id() const { return {kHotKeySignature, number}; }
};

inline constexpr platform::Modifiers kCtrlAlt = platform::Modifier::Ctrl | platform::Modifier::Alt;

/// The hot keys that are there for the whole run, in the order of their registration.
inline constexpr std::array<HotKeyRow, 6> kHotKeyTable = {{
    {1, platform::PhysicalKey::D, kCtrlAlt},
    {2, platform::PhysicalKey::S, kCtrlAlt},
    {3, platform::PhysicalKey::W, kCtrlAlt},
    {4, platform::PhysicalKey::K, kCtrlAlt},
    {5, platform::PhysicalKey::T, kCtrlAlt},
    {6, platform::PhysicalKey::P, kCtrlAlt},
}};

/// Esc, which is taken from the other applications only while the spotlight is on: unless it is drawn on, the
/// overlays let the keyboard through and could not see it.
inline constexpr HotKeyRow kEscHotKey = {99, platform::PhysicalKey::Escape, {}};

} // namespace zeigewerk
