#pragma once

#include "platform/x11/connection.h"

#include <QAbstractNativeEventFilter>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <xcb/xinput.h>

#include <bitset>
#include <deque>
#include <functional>
#include <vector>

namespace zeigewerk::platform::x11 {

/// Keeps what is typed into a window of Qt's in order with what is done on the canvases. The keys come on
/// Qt's connection and the presses on ours, and nothing says in which order the two are read; and until a
/// press, or the key that closes the window, has been handled, the server goes on sending keys to that
/// window.
///
/// The times of events cannot tell their order, since several may share a millisecond. So while such a window
/// has the keyboard, we have our connection announce each key (raw events): among the presses, in order.
class TypedKeys : public QObject, public QAbstractNativeEventFilter
{
    Q_OBJECT

public:
    using HandlePress = std::function<void(const xcb_input_button_press_event_t &press)>;
    using HandleKey = std::function<void(xcb_window_t canvas, const xcb_key_press_event_t &key)>;

    /// `handlePress` is called for the press when it is its turn, `handleKey` for each key that was typed
    /// into the window and belongs to a canvas.
    TypedKeys(Connection &connection, HandlePress handlePress, HandleKey handleKey);
    ~TypedKeys() override;

    /// That window of Qt's is about to get the keyboard.
    void keyboardComes(xcb_window_t window);
    /// The keyboard goes to another program.
    void keyboardGoes();

    /// Holds the press, and our connection with all that comes after it, until Qt has handled everything that
    /// was typed before it into that window, which no longer has the keyboard.
    void letGoBefore(const xcb_input_button_press_event_t &press, xcb_window_t window);
    /// The window of that widget, which lives on for a while, closes. If the keyboard is with that canvas by
    /// now, it gets what is yet to come to the window.
    void windowCloses(xcb_window_t window, QWidget &widget, xcb_window_t canvas);

    /// A key was pressed, whoever gets it.
    void keyAnnounced(const xcb_input_raw_key_press_event_t &event);
    /// Has those keys handled that wait and were pressed before that time. Call it before anything is handled
    /// that happened then.
    void catchUpWith(xcb_timestamp_t time);

    bool nativeEventFilter(const QByteArray &eventType, void *message, qintptr *result) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Key
    {
        xcb_timestamp_t time = 0;
        std::uint32_t code = 0;

        friend bool operator==(const Key &, const Key &) = default;
    };

    static Key keyOf(const xcb_key_press_event_t &event) { return {event.time, event.detail}; }
    static void remember(std::deque<Key> &keys, const Key &key);

    void setWindow(xcb_window_t window);
    void hold();
    bool sendMark();
    bool isMark(const xcb_client_message_event_t &event);
    /// Has Qt take in that the window has the focus, should it have read so and nothing else. It does when it
    /// has read all that there is, and has no accents and no input method for the keys among that.
    void tellOfFocus();
    bool takes(const xcb_key_press_event_t &event);
    bool wasAnnounced(const Key &key);
    bool isAfterPress(xcb_timestamp_t time) const;
    void resumeFrom(std::uint32_t mark);
    void resume();
    void handleFirst();

    Connection &m_connection;
    HandlePress m_handlePress;
    HandleKey m_handleKey;
    /// What has the keyboard, or had it and may still get keys.
    xcb_window_t m_window = XCB_NONE;
    /// Its widget, once it is closed.
    QPointer<QWidget> m_closed;
    /// The keys that are down in it: what else they send are repeats.
    std::bitset<256> m_down;
    /// The last repeats that Qt has read. What Qt itself takes for a repeat may be a quick second press.
    std::deque<Key> m_repeats;
    /// Whether our connection waits for the mark.
    bool m_isHolding = false;
    std::uint32_t m_mark = 0;
    QTimer m_patience;
    /// The press that is held, if one is, with what follows it in memory.
    std::vector<char> m_press;
    /// Announced, and not yet read by Qt.
    std::deque<Key> m_announced;
    /// Read by Qt, and not yet announced: they wait, and are meant for that canvas.
    std::deque<xcb_key_press_event_t> m_waiting;
    xcb_window_t m_canvas = XCB_NONE;
};

} // namespace zeigewerk::platform::x11
