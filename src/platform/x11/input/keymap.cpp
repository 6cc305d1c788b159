#include "platform/x11/input/keymap.h"

#include "platform/x11/input/modifiers.h"
#include "platform/x11/input/xkb.h"

#include <xkbcommon/xkbcommon-x11.h>

#include <utility>

namespace zeigewerk::platform::x11 {

namespace {

/// The symbol of a Latin character is its code.
bool isLatin(xkb_keysym_t symbol)
{
    return symbol != XKB_KEY_NoSymbol && symbol <= 0xFF;
}

/// The Latin letter of the key for commands such as Ctrl+Z: the letter in the first of the user's layouts
/// that has one on this key, else `symbol`.
xkb_keysym_t latinSymbol(xkb_keymap *keymap, xkb_keycode_t key, xkb_keysym_t symbol)
{
    for (xkb_layout_index_t layout = 0; layout < xkb_keymap_num_layouts_for_key(keymap, key); ++layout) {
        const xkb_keysym_t *symbols = nullptr;
        const int count = xkb_keymap_key_get_syms_by_level(keymap, key, layout, 0, &symbols);
        if (count == 1 && isLatin(*symbols))
            return *symbols;
    }
    return symbol;
}

} // namespace

Keymap::Keymap(Connection &connection)
    : m_connection(connection)
{
    constexpr std::uint16_t kChanges = XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY;
    xcb_xkb_select_events(connection.xcb(), XCB_XKB_ID_USE_CORE_KBD, kChanges, 0, kChanges, 0xFF, 0xFF,
                          nullptr);
    // A held key then repeats without releases, so that a press after a release is a new one.
    constexpr std::uint32_t kFlag = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    const auto cookie =
        xcb_xkb_per_client_flags(connection.xcb(), XCB_XKB_ID_USE_CORE_KBD, kFlag, kFlag, 0, 0, 0);
    owned(xcb_xkb_per_client_flags_reply(connection.xcb(), cookie, nullptr));
}

void Keymap::load()
{
    if (!m_context)
        m_context.reset(xkb_context_new(XKB_CONTEXT_NO_DEFAULT_INCLUDES)); // the keymap comes from the server
    if (!m_context)
        return;
    const std::int32_t device = xkb_x11_get_core_keyboard_device_id(m_connection.xcb());
    std::unique_ptr<xkb_keymap, Unref> keymap(xkb_x11_keymap_new_from_device(
        m_context.get(), m_connection.xcb(), device, XKB_KEYMAP_COMPILE_NO_FLAGS));
    std::unique_ptr<xkb_state, Unref> state(keymap ? xkb_state_new(keymap.get()) : nullptr);
    // Plugging in a keyboard may change the keymap while it is read. The old one stays in use, and the next
    // key press reads it again.
    if (!state)
        return;
    m_keymap = std::move(keymap);
    m_state = std::move(state);
    m_isStale = false;
}

KeyEvent Keymap::keyEvent(const xcb_key_press_event_t &event)
{
    if (m_isStale)
        load();
    KeyEvent result{.modifiers = modifiersOf(event.state)};
    if (!m_state)
        return result;
    // Shift and the locks determine the character; Ctrl, Alt and Super do not.
    constexpr xkb_mod_mask_t kCharacterModifiers = 0xFF & ~(XCB_MOD_MASK_CONTROL | kAltMask | kSuperMask);
    const xkb_layout_index_t layout = (event.state >> 13) & 3;
    xkb_state_update_mask(m_state.get(), event.state & kCharacterModifiers, 0, 0, 0, 0, layout);
    xkb_keysym_t symbol = xkb_state_key_get_one_sym(m_state.get(), event.detail);
    result.isEscape = symbol == XKB_KEY_Escape;
    const bool isCommand = result.modifiers.testAnyFlags(Modifier::Ctrl | Modifier::Super);
    if (isCommand && xkb_keysym_to_utf32(symbol) > 0xFF)
        symbol = latinSymbol(m_keymap.get(), event.detail, symbol);
    result.character = xkb_keysym_to_utf32(symbol);
    return result;
}

} // namespace zeigewerk::platform::x11
