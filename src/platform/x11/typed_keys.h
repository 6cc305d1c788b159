#pragma once

#include "platform/x11/connection.h"

#include <QAbstractNativeEventFilter>
#include <QTimer>

#include <functional>
#include <vector>

namespace zeigewerk::platform::x11 {

/// Keeps a press on a canvas behind what was typed before it into a window of Qt's. The keys come on Qt's
/// connection and the press on ours, and the two are read one after the other in any order.
class TypedKeys : public QObject, public QAbstractNativeEventFilter
{
    Q_OBJECT

public:
    /// `handle` is called for the press when it is its turn.
    TypedKeys(Connection &connection, std::function<void(const xcb_generic_event_t &)> handle);
    ~TypedKeys() override;

    /// Holds the press, and our connection with all that comes after it, until Qt has handled everything that
    /// the server has sent to that window so far.
    void letGoBefore(const xcb_ge_generic_event_t &press, xcb_window_t window);

    bool nativeEventFilter(const QByteArray &eventType, void *message, qintptr *result) override;

private:
    void sendMark(xcb_window_t window);
    void resume();

    Connection &m_connection;
    std::function<void(const xcb_generic_event_t &)> m_handle;
    std::vector<char> m_press;
    std::uint32_t m_mark = 0;
    QTimer m_patience;
};

} // namespace zeigewerk::platform::x11
