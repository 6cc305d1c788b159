#include "platform/x11/typed_keys.h"

#include <QCoreApplication>

#include <chrono>
#include <utility>

namespace zeigewerk::platform::x11 {

namespace {

constexpr char kMark[] = "_ZEIGEWERK_TYPED_KEYS";
/// The mark comes back within a millisecond; nothing may keep the pointer waiting for long.
constexpr std::chrono::milliseconds kPatience(250);
constexpr std::uint8_t kEventType = 0x7F;

/// With the number that xcb puts behind the first 32 bytes.
std::size_t sizeOf(const xcb_ge_generic_event_t &event)
{
    return sizeof(xcb_generic_event_t) + 4 * std::size_t{event.length};
}

} // namespace

TypedKeys::TypedKeys(Connection &connection, std::function<void(const xcb_generic_event_t &)> handle)
    : m_connection(connection)
    , m_handle(std::move(handle))
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(kPatience);
    m_patience.callOnTimeout(this, &TypedKeys::resume);
}

TypedKeys::~TypedKeys()
{
    QCoreApplication::instance()->removeNativeEventFilter(this);
}

void TypedKeys::letGoBefore(const xcb_ge_generic_event_t &press, xcb_window_t window)
{
    const auto *bytes = reinterpret_cast<const char *>(&press);
    m_press.assign(bytes, bytes + sizeOf(press));
    m_connection.pause();
    QCoreApplication::instance()->installNativeEventFilter(this);
    sendMark(window);
    m_patience.start();
}

void TypedKeys::sendMark(xcb_window_t window)
{
    // The server sends a window's events to a client in order, so this one arrives after the keys.
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = m_connection.atom(kMark);
    event.data.data32[0] = ++m_mark;
    xcb_send_event(m_connection.xcb(), false, window, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char *>(&event));
    m_connection.flush();
}

bool TypedKeys::nativeEventFilter(const QByteArray &eventType, void *message, qintptr *)
{
    if (eventType != "xcb_generic_event_t")
        return false;
    const auto &event = *static_cast<const xcb_client_message_event_t *>(message);
    if ((event.response_type & kEventType) != XCB_CLIENT_MESSAGE || event.type != m_connection.atom(kMark) ||
        event.data.data32[0] != m_mark)
        return false;
    // Qt has read the keys by now and hands them on when it has read all that there is.
    QMetaObject::invokeMethod(this, &TypedKeys::resume, Qt::QueuedConnection);
    return true;
}

void TypedKeys::resume()
{
    if (m_press.empty())
        return; // it took longer than there was patience for
    m_patience.stop();
    QCoreApplication::instance()->removeNativeEventFilter(this);
    const std::vector<char> press = std::exchange(m_press, {});
    m_handle(*reinterpret_cast<const xcb_generic_event_t *>(press.data()));
    m_connection.resume();
}

} // namespace zeigewerk::platform::x11
