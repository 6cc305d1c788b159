#pragma once

#include "platform/x11/connection.h"

#include <QAbstractNativeEventFilter>
#include <QTimer>

#include <xcb/xinput.h>

#include <deque>
#include <functional>
#include <vector>

namespace zeigewerk::platform::x11 {

/// Keeps a press on a canvas between what was typed before it and after it. While a window of Qt's has the
/// keyboard, the keys come on Qt's connection and the press on ours, and nothing says in which order the two
/// are read; and until the press has been handled, the server goes on sending keys to that window.
class TypedKeys : public QObject, public QAbstractNativeEventFilter
{
    Q_OBJECT

public:
    using HandlePress = std::function<void(const xcb_input_button_press_event_t &press)>;
    using HandleKey = std::function<void(xcb_window_t canvas, const xcb_key_press_event_t &key)>;

    /// `handlePress` is called for the press when it is its turn, `handleKey` for each key after it, with the
    /// canvas of the press.
    TypedKeys(Connection &connection, HandlePress handlePress, HandleKey handleKey);
    ~TypedKeys() override;

    /// Holds the press, and our connection with all that comes after it, until Qt has handled everything that
    /// was typed before it into that window, which no longer has the keyboard.
    void letGoBefore(const xcb_input_button_press_event_t &press, xcb_window_t window);

    /// Has those keys handled that were pressed after the press, but not after that time. Call it before
    /// anything is handled that happened then.
    void catchUpWith(xcb_timestamp_t time);

    bool nativeEventFilter(const QByteArray &eventType, void *message, qintptr *result) override;

private:
    const xcb_input_button_press_event_t &press() const;
    void sendMark();
    bool isMark(const xcb_client_message_event_t &event);
    bool isAfterPress(const xcb_key_press_event_t &event) const;
    void resume();

    Connection &m_connection;
    HandlePress m_handlePress;
    HandleKey m_handleKey;
    /// The press with what follows it in memory.
    std::vector<char> m_press;
    xcb_window_t m_window = XCB_NONE;
    /// The canvas of the last press that was held, and the keys after it that were meant for it.
    xcb_window_t m_canvas = XCB_NONE;
    std::deque<xcb_key_press_event_t> m_keysAfter;
    std::uint32_t m_mark = 0;
    QTimer m_patience;
};

} // namespace zeigewerk::platform::x11
