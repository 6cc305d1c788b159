// Another program's window: what the presenter shows, and what must or must not notice our input.
#pragma once

#include "client.h"
#include "key.h"

#include <QColor>
#include <QList>
#include <QPoint>
#include <QRect>
#include <QString>

namespace zeigewerk::rig {

class DesktopSession;

/// Something that reached the window.
struct InputEvent
{
    enum class Kind { ButtonPress, ButtonRelease, DragMotion, KeyPress, KeyRelease, FocusIn, FocusOut };

    Kind kind = Kind::ButtonPress;
    /// Of the pointer, in native root pixels; for all but focus events.
    QPoint place = {};
    /// As Pointer::Button; for buttons.
    int button = 0;
    /// For keys.
    Key key = Key::Escape;
    /// Buttons, modifiers and locks before the event, as X counts them; for all but focus events.
    std::uint16_t state = 0;
    /// The focus only seemed to move, while somebody's key grab lasted; for focus events.
    bool isByGrab = false;
};

/// An ordinary managed window of one colour, on a connection of its own. The server itself repaints it, so it
/// shows its colour even while the test is busy elsewhere.
class WindowBeneath
{
public:
    /// Comes back when the window is viewable at exactly that rectangle (native root pixels). Throws RigError
    /// if the window manager puts it elsewhere.
    WindowBeneath(DesktopSession &session, const QRect &rect, const QColor &color);
    /// Destroys the window.
    ~WindowBeneath() = default;

    xcb_window_t id() const { return m_id; }

    /// Asks the window manager for the keyboard, as a click in the task bar does; true once this window is
    /// the focus owner, false if that does not happen.
    bool takeFocus();
    /// The same for a window that has just opened: a window manager gives it the keyboard by itself.
    bool opensWithFocus();
    bool hasFocus() { return m_client.inputFocus() == m_id; }
    /// Comes to the top of the ordinary windows; false if that does not happen within the deadline.
    bool raise();
    /// Enters or leaves the window manager's full-screen state; false if it does not. Without a window
    /// manager a window that covers the screen comes to the top.
    bool setFullScreen(bool on);
    /// Hides itself without being destroyed; true once it is unmapped.
    bool hide();

    /// What reached the window since it exists or forget() was called, in order.
    const QList<InputEvent> &events();
    /// Forgets what reached it so far, focus events included.
    void forget();
    /// Where a button went down, in order.
    QList<QPoint> presses(int button = 1);
    /// Where a button came up, in order.
    QList<QPoint> releases(int button = 1);
    /// Where the pointer moved with a button down, in order.
    QList<QPoint> dragMotions();
    /// The keys that went down, in order.
    QList<Key> pressedKeys();

private:
    void create(const QRect &rect, const QColor &color);
    void setHints(const QRect &rect);
    bool awaitPlace(const QRect &rect);
    void moveTo(const QRect &rect);
    QString currentPlace();
    void record(const xcb_generic_event_t &event);
    QList<QPoint> placesOf(InputEvent::Kind kind, int button);

    DesktopSession &m_session;
    Client m_client;
    xcb_window_t m_id = XCB_WINDOW_NONE;
    QList<InputEvent> m_events;
};

} // namespace zeigewerk::rig
