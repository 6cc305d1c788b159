// Another program's window: it shows the presentation, and records the input that it gets.
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

/// An event that reached the window.
struct InputEvent
{
    enum class Kind { ButtonPress, ButtonRelease, DragMotion, KeyPress, KeyRelease, FocusIn, FocusOut };

    Kind kind = Kind::ButtonPress;
    /// The pointer's place in native root pixels; not for focus events.
    QPoint place = {};
    /// As in Pointer::Button; for button events.
    int button = 0;
    /// For key events.
    Key key = Key::Escape;
    /// Buttons, modifiers and locks before the event, as in X; not for focus events.
    std::uint16_t state = 0;
    /// Caused by a keyboard grab rather than by a real focus change; for focus events.
    bool isByGrab = false;
};

/// An ordinary managed window of one colour, on a connection of its own. The server repaints it, so it is
/// intact even while the test is busy.
class WindowBeneath
{
public:
    /// Waits until the window is viewable at exactly that rectangle (native root pixels). Throws RigError if
    /// the window manager puts it elsewhere.
    WindowBeneath(DesktopSession &session, const QRect &rect, const QColor &color);
    /// Destroys the window.
    ~WindowBeneath() = default;

    xcb_window_t id() const { return m_id; }

    /// Asks the window manager for the keyboard, as a click in the task bar does. True once this window has
    /// the focus; false if that does not happen.
    bool takeFocus();
    /// The same for a window that has just opened, which a window manager focuses by itself.
    bool opensWithFocus();
    bool hasFocus() { return m_client.inputFocus() == m_id; }
    /// Raises it above all ordinary windows; false if that does not happen within the deadline.
    bool raise();
    /// Enters or leaves the full-screen state; false if the window manager refuses. Without a window manager,
    /// a window that covers the screen is raised.
    bool setFullScreen(bool on);
    /// Unmaps the window without destroying it; true once it is unmapped.
    bool hide();

    /// The events since the window was created or forget() was called, in order.
    const QList<InputEvent> &events();
    /// Forgets all events so far, focus events included.
    void forget();
    /// Where a button was pressed, in order.
    QList<QPoint> presses(int button = 1);
    /// Where a button was released, in order.
    QList<QPoint> releases(int button = 1);
    /// Where the pointer moved with a button pressed, in order.
    QList<QPoint> dragMotions();
    /// The keys that were pressed, in order.
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
