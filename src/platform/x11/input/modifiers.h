#pragma once

#include "platform/events.h"

#include <xcb/xcb.h>

#include <cstdint>

namespace zeigewerk::platform::x11 {

// In every keymap of xkeyboard-config, Alt is Mod1, NumLock is Mod2 and Super is Mod4.
inline constexpr std::uint32_t kAltMask = XCB_MOD_MASK_1;
inline constexpr std::uint32_t kSuperMask = XCB_MOD_MASK_4;
inline constexpr std::uint32_t kNumLockMask = XCB_MOD_MASK_2;

inline Modifiers modifiersOf(std::uint32_t state)
{
    Modifiers modifiers;
    modifiers.setFlag(Modifier::Shift, state & XCB_MOD_MASK_SHIFT);
    modifiers.setFlag(Modifier::Ctrl, state & XCB_MOD_MASK_CONTROL);
    modifiers.setFlag(Modifier::Alt, state & kAltMask);
    modifiers.setFlag(Modifier::Super, state & kSuperMask);
    return modifiers;
}

inline std::uint16_t stateOf(Modifiers modifiers)
{
    std::uint32_t state = 0;
    state |= modifiers.testFlag(Modifier::Shift) ? std::uint32_t{XCB_MOD_MASK_SHIFT} : 0;
    state |= modifiers.testFlag(Modifier::Ctrl) ? std::uint32_t{XCB_MOD_MASK_CONTROL} : 0;
    state |= modifiers.testFlag(Modifier::Alt) ? kAltMask : 0;
    state |= modifiers.testFlag(Modifier::Super) ? kSuperMask : 0;
    return static_cast<std::uint16_t>(state);
}

} // namespace zeigewerk::platform::x11
