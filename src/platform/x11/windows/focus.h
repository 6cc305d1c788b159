#pragma once

#include "platform/x11/connection.h"

#include <QRect>
#include <QTimer>

#include <optional>

namespace zeigewerk::platform::x11 {

/// The keyboard focus while we borrow it: remembers the previous owner, keeps the focus, and hands it back.
///
/// It looks at the server's focus, because a window manager's active window lags behind. It sets the focus
/// with the current time, because some window managers ignore requests with an event's time.
class Focus : public QObject
{
    Q_OBJECT

public:
    explicit Focus(Connection &connection);

    /// Interaction begins: remembers which window has the focus.
    void borrow();
    /// Gives the focus to one of our windows, which must be mapped.
    void give(xcb_window_t window);
    /// Our window that was given the focus last. None if it is gone, or if the focus was handed back.
    xcb_window_t key() const { return m_key; }
    /// Interaction has ended: hands the focus back, unless another program has taken it.
    void handBack();

    /// The frame of the top-level window that has the focus, in pixels. None if that is one of ours, or if no
    /// window has it.
    std::optional<QRect> frameOfOwner() const;

    /// One of our windows was hidden or destroyed, so it cannot keep the focus.
    void forget(xcb_window_t window);

    void focusOut(const xcb_focus_out_event_t &event);
    /// A press of that key in one of our windows is being handled from here to `noKeyIsHandled`. It may end
    /// interaction.
    void keyIsHandled(xcb_keycode_t key) { m_handledKey = key; }
    void noKeyIsHandled() { m_handledKey = 0; }
    /// Whether the keyboard is grabbed until the key that ended interaction is released.
    bool isHolding() const { return m_isHolding; }
    /// `isHotKeyHeld`: we got the press of a hot key, so we must also get its release.
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
    /// A dock may be the topmost window, but users do not type into it.
    bool isDock(xcb_window_t window);
    bool isViewable(xcb_window_t window) const;

    Connection &m_connection;
    bool m_isBorrowed = false;
    xcb_window_t m_previous = XCB_NONE;
    /// Our window that was given the focus last.
    xcb_window_t m_key = XCB_NONE;
    QTimer m_takeAgain;
    int m_retriesLeft = 0;
    xcb_keycode_t m_handledKey = 0;
    bool m_isHolding = false;
    /// The grab of the keyboard lasts until this key is released; 0 after that.
    xcb_keycode_t m_heldKey = 0;
};

} // namespace zeigewerk::platform::x11
