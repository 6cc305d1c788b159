#pragma once

#include "platform/hot_keys.h"
#include "platform/x11/connection.h"

#include <list>

namespace zeigewerk::platform::x11 {

/// Hot keys as passive grabs on the root window.
class X11HotKeys : public HotKeys
{
    Q_OBJECT

public:
    explicit X11HotKeys(Connection &connection)
        : m_connection(connection)
    {
    }

    /// The server answers at once.
    std::vector<std::unique_ptr<HotKeyRegistration>>
    registerHotKeys(std::span<const HotKey> hotKeys) override;

    /// A key event of the root window.
    void keyPressed(const xcb_key_press_event_t &event);
    void keyReleased(const xcb_key_release_event_t &event);
    /// Asks the server which hot keys are still held: the release of one may have gone to another program.
    void forgetReleased();
    /// Whether a hot key was pressed and, as far as we know, not released.
    bool isAnyHeld() const;

private:
    struct Grab
    {
        xcb_keycode_t keyCode;
        std::uint16_t modifiers;
        HotKeyId id;
        bool isHeld = false;
    };
    class Registration;

    std::unique_ptr<HotKeyRegistration> registerHotKey(const HotKey &hotKey);
    bool grab(const Grab &grab);
    void ungrab(const Grab &grab);

    Connection &m_connection;
    std::list<Grab> m_grabs;
};

} // namespace zeigewerk::platform::x11
