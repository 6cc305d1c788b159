#pragma once

#include "platform/x11/connection.h"

#include <QRect>
#include <QTimer>

#include <optional>

namespace zeigewerk::platform::x11 {

/// The keyboard, while we borrow it: who had it, that we keep it, and that it goes back.
///
/// What counts is the server's focus. Window managers that publish an active window lag behind it, and some
/// ignore requests that carry an event's time, so the focus is always set with the current time.
class Focus : public QObject
{
    Q_OBJECT

public:
    explicit Focus(Connection &connection);

    /// Interaction begins: remembers who has the keyboard.
    void borrow();
    /// Gives the keyboard to one of our windows, which must be mapped.
    void give(xcb_window_t window);
    /// The one of our windows that was given the keyboard last; none if it is gone or was handed back.
    xcb_window_t key() const { return m_key; }
    /// Interaction has ended: hands the keyboard back, unless somebody else has taken it.
    void handBack();

    /// Where the top-level window lies that has the keyboard, in pixels; none if it is one of ours, or no
    /// window.
    std::optional<QRect> frameOfOwner() const;

    /// One of our windows is no longer there to have the keyboard.
    void forget(xcb_window_t window);

    void focusOut(const xcb_focus_out_event_t &event);
    /// Whether a press of that key, of one of our windows, is being handled: it may end interaction.
    void keyIsHandled(xcb_keycode_t key) { m_handledKey = key; }
    void noKeyIsHandled() { m_handledKey = 0; }
    /// Whether the keyboard is held on to until a key is released.
    bool isHolding() const { return m_isHolding; }
    /// `isHotKeyHeld`: some hot key's press was ours, so its release must be, too.
    void keyReleased(xcb_keycode_t key, bool isHotKeyHeld);

private:
    xcb_window_t owner() const;
    void remember(xcb_window_t owner);
    void takeAgain();
    void set(xcb_window_t window);
    void holdUntilRelease(xcb_keycode_t key);
    bool isDown(xcb_keycode_t key) const;
    bool trySet(xcb_window_t window);
    xcb_window_t topmostClient();
    /// Docks stand above all windows, but nobody types into one.
    bool isDock(xcb_window_t window);
    bool isViewable(xcb_window_t window) const;

    Connection &m_connection;
    bool m_isBorrowed = false;
    xcb_window_t m_previous = XCB_NONE;
    /// Ours that was given the keyboard last.
    xcb_window_t m_key = XCB_NONE;
    QTimer m_takeAgain;
    int m_retriesLeft = 0;
    xcb_keycode_t m_handledKey = 0;
    bool m_isHolding = false;
    /// The key until whose release we hold on to the keyboard; 0 once it is released.
    xcb_keycode_t m_heldKey = 0;
};

} // namespace zeigewerk::platform::x11
