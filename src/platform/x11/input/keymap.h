#pragma once

#include "platform/events.h"
#include "platform/x11/connection.h"

#include <xkbcommon/xkbcommon.h>

namespace zeigewerk::platform::x11 {

/// Translates keys of the core keyboard with the user's layout.
class Keymap
{
public:
    explicit Keymap(Connection &connection);

    KeyEvent keyEvent(const xcb_key_press_event_t &event);
    /// The layout has changed. It is read again at the next key press, since changes come in bursts.
    void invalidate() { m_isStale = true; }

private:
    void load();

    struct Unref
    {
        void operator()(xkb_context *context) const { xkb_context_unref(context); }
        void operator()(xkb_keymap *keymap) const { xkb_keymap_unref(keymap); }
        void operator()(xkb_state *state) const { xkb_state_unref(state); }
    };

    Connection &m_connection;
    bool m_isStale = true;
    std::unique_ptr<xkb_context, Unref> m_context;
    std::unique_ptr<xkb_keymap, Unref> m_keymap;
    std::unique_ptr<xkb_state, Unref> m_state;
};

} // namespace zeigewerk::platform::x11
