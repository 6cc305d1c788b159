#pragma once

#include "platform/x11/connection.h"
#include "platform/x11/input/key_order.h"

#include <QAbstractNativeEventFilter>
#include <QTimer>
#include <QWidget>

#include <xcb/xinput.h>

#include <functional>
#include <vector>

namespace zeigewerk::platform::x11 {

/// Keeps the keys typed into a text field in order with the presses on the canvases. Qt's connection delivers
/// the keys, ours the presses and the announcements; KeyOrder decides, and this does what it asks for.
class TypedKeys : public QObject, public QAbstractNativeEventFilter, private KeyOrder::Actions
{
    Q_OBJECT

public:
    using HandlePress = std::function<void(const xcb_input_button_press_event_t &press)>;
    using HandleKey = std::function<void(xcb_window_t canvas, const xcb_key_press_event_t &key)>;

    /// `handlePress` is called for a held press when its turn has come, `handleKey` for each key that was
    /// typed into a field and belongs to a canvas.
    TypedKeys(Connection &connection, HandlePress handlePress, HandleKey handleKey);
    ~TypedKeys() override;

    /// The field's window is about to get the keyboard.
    void keyboardComes(xcb_window_t field) { m_order.keyboardComes(field); }
    /// The keyboard goes to another program.
    void keyboardGoes() { m_order.keyboardGoes(); }

    /// Holds the press, and our connection, until Qt has handled the keys typed before it into the field. The
    /// canvas must have taken the keyboard from the field already.
    void holdPress(const xcb_input_button_press_event_t &press, xcb_window_t field);
    /// The field closes; its widget is deleted later. If `keyboardOwner`, the window of ours that has the
    /// keyboard now, is a canvas, it gets the keys that still come to the field.
    void windowCloses(xcb_window_t field, QWidget &widget, xcb_window_t keyboardOwner);

    /// A key was pressed, whichever window gets it.
    void keyAnnounced(const xcb_input_raw_key_press_event_t &event);
    /// Handles the waiting keys that were pressed before that time. Call it before handling any event of that
    /// time.
    void handleKeysBefore(xcb_timestamp_t time) { m_order.handleKeysBefore(time); }

    bool nativeEventFilter(const QByteArray &eventType, void *message, qintptr *result) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void startAnnouncements() override;
    void stopAnnouncements() override;
    void pauseConnection() override;
    void resumeConnection() override;
    bool sendMark(xcb_window_t field, std::uint32_t mark) override;
    void releaseLater(std::uint32_t mark) override;
    void handlePress() override;
    void handleKey(xcb_window_t canvas, const KeyOrder::Key &key) override;

    bool interceptKey(const xcb_key_press_event_t &event);
    bool interceptMark(const xcb_client_message_event_t &event);
    void processPendingFocusIn() const;
    void widgetDeleted(const QObject *widget);

    Connection &m_connection;
    HandlePress m_handlePress;
    HandleKey m_handleKey;
    KeyOrder m_order{*this};
    QTimer m_markTimeout;
    /// The press that is held, with the data behind the event's struct; empty if none is.
    std::vector<char> m_press;
    /// The field that was closed last, until it is deleted.
    const QObject *m_closed = nullptr;
};

} // namespace zeigewerk::platform::x11
