#include "platform/x11/typed_keys.h"

#include <QCoreApplication>

#include <chrono>
#include <utility>

namespace zeigewerk::platform::x11 {

namespace {

constexpr char kMark[] = "_ZEIGEWERK_TYPED_KEYS";
/// The mark comes back within a millisecond; should it get lost, the pointer must not wait for ever.
constexpr std::chrono::seconds kPatience(1);
constexpr std::uint8_t kEventType = 0x7F;

/// With the number that xcb puts behind the first 32 bytes.
std::size_t sizeOf(const xcb_input_button_press_event_t &event)
{
    return sizeof(xcb_generic_event_t) + 4 * std::size_t{event.length};
}

/// The server's time wraps round.
bool isLater(xcb_timestamp_t one, xcb_timestamp_t other)
{
    return static_cast<std::int32_t>(one - other) > 0;
}

} // namespace

TypedKeys::TypedKeys(Connection &connection, HandlePress handlePress, HandleKey handleKey)
    : m_connection(connection)
    , m_handlePress(std::move(handlePress))
    , m_handleKey(std::move(handleKey))
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(kPatience);
    m_patience.callOnTimeout(this, &TypedKeys::resume);
}

TypedKeys::~TypedKeys()
{
    QCoreApplication::instance()->removeNativeEventFilter(this);
}

void TypedKeys::letGoBefore(const xcb_input_button_press_event_t &press, xcb_window_t window)
{
    const auto *bytes = reinterpret_cast<const char *>(&press);
    m_press.assign(bytes, bytes + sizeOf(press));
    m_window = window;
    m_connection.pause();
    QCoreApplication::instance()->installNativeEventFilter(this);
    sendMark();
    m_patience.start();
}

const xcb_input_button_press_event_t &TypedKeys::press() const
{
    return *reinterpret_cast<const xcb_input_button_press_event_t *>(m_press.data());
}

void TypedKeys::sendMark()
{
    // The server sends a window's events to a client in order, so this one arrives after the keys.
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = m_window;
    event.type = m_connection.atom(kMark);
    event.data.data32[0] = ++m_mark;
    xcb_send_event(m_connection.xcb(), false, m_window, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char *>(&event));
    m_connection.flush();
}

bool TypedKeys::nativeEventFilter(const QByteArray &eventType, void *message, qintptr *)
{
    if (eventType != "xcb_generic_event_t")
        return false;
    switch (static_cast<const xcb_generic_event_t *>(message)->response_type & kEventType) {
    case XCB_KEY_PRESS: {
        const auto &key = *static_cast<const xcb_key_press_event_t *>(message);
        if (!isAfterPress(key))
            return false;
        m_keysAfter.push_back(key);
        return true;
    }
    case XCB_CLIENT_MESSAGE:
        if (!isMark(*static_cast<const xcb_client_message_event_t *>(message)))
            return false;
        // Qt has read the keys by now, and hands them on when it has read all that there is.
        QMetaObject::invokeMethod(this, &TypedKeys::resume, Qt::QueuedConnection);
        return true;
    default:
        return false;
    }
}

bool TypedKeys::isMark(const xcb_client_message_event_t &event)
{
    return event.type == m_connection.atom(kMark) && event.data.data32[0] == m_mark;
}

bool TypedKeys::isAfterPress(const xcb_key_press_event_t &event) const
{
    return !m_press.empty() && event.event == m_window && isLater(event.time, press().time);
}

void TypedKeys::resume()
{
    if (m_press.empty())
        return; // it took longer than there was patience for
    m_patience.stop();
    QCoreApplication::instance()->removeNativeEventFilter(this);
    const std::vector<char> held = std::exchange(m_press, {});
    const auto &press = *reinterpret_cast<const xcb_input_button_press_event_t *>(held.data());
    m_canvas = press.event;
    m_handlePress(press);
    // Whatever else was done before the last of those keys has arrived after this, and comes in its turn.
    m_connection.roundTrip();
    m_connection.resume();
    if (m_press.empty() && !m_keysAfter.empty())
        catchUpWith(m_keysAfter.back().time);
}

void TypedKeys::catchUpWith(xcb_timestamp_t time)
{
    while (!m_keysAfter.empty() && !isLater(m_keysAfter.front().time, time)) {
        const xcb_key_press_event_t key = m_keysAfter.front();
        m_keysAfter.pop_front();
        m_handleKey(m_canvas, key);
    }
}

} // namespace zeigewerk::platform::x11
