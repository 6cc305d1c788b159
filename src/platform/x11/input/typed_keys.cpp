#include "platform/x11/input/typed_keys.h"

#include "platform/x11/input/key_announcements.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QWindow>

#include <algorithm>
#include <chrono>
#include <utility>

namespace zeigewerk::platform::x11 {

namespace {

constexpr char kMark[] = "_ZEIGEWERK_TYPED_KEYS";
/// The mark comes back within a millisecond; should it get lost, the pointer must not wait for ever.
constexpr std::chrono::seconds kPatience(1);
/// More than anybody types before Qt reads the first of it. Some never come to Qt, as those of hot keys.
constexpr std::size_t kMostRemembered = 256;

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

const xcb_input_button_press_event_t &pressOf(const std::vector<char> &bytes)
{
    return *reinterpret_cast<const xcb_input_button_press_event_t *>(bytes.data());
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
    QCoreApplication::instance()->installNativeEventFilter(this);
}

TypedKeys::~TypedKeys()
{
    QCoreApplication::instance()->removeNativeEventFilter(this);
}

void TypedKeys::keyboardComes(xcb_window_t window)
{
    if (!m_isHolding)
        setWindow(window);
}

void TypedKeys::keyboardGoes()
{
    if (!m_isHolding)
        setWindow(XCB_NONE);
}

void TypedKeys::letGoBefore(const xcb_input_button_press_event_t &press, xcb_window_t window)
{
    setWindow(window);
    const auto *bytes = reinterpret_cast<const char *>(&press);
    m_press.assign(bytes, bytes + sizeOf(press));
    m_canvas = press.event;
    hold();
}

void TypedKeys::windowCloses(xcb_window_t window, QWidget &widget, xcb_window_t canvas)
{
    if (window != m_window)
        return;
    if (!m_isHolding) {
        if (canvas == XCB_NONE || canvas == window)
            return setWindow(XCB_NONE);
        m_canvas = canvas;
        hold();
    }
    m_closed = &widget;
    widget.installEventFilter(this);
}

void TypedKeys::setWindow(xcb_window_t window)
{
    if (m_closed)
        m_closed->removeEventFilter(this);
    m_closed.clear();
    if (window == m_window)
        return;
    const bool wasNone = std::exchange(m_window, window) == XCB_NONE;
    m_down.reset();
    m_repeats.clear();
    if (wasNone || window == XCB_NONE) {
        m_announced.clear();
        if (window != XCB_NONE)
            startAnnouncingKeys(m_connection);
        else
            stopAnnouncingKeys(m_connection);
    }
}

void TypedKeys::hold()
{
    m_isHolding = true;
    m_connection.pause();
    m_patience.start();
    if (!sendMark())
        resumeFrom(m_mark);
}

bool TypedKeys::sendMark()
{
    // The server sends a window's events to a client in order, so this one arrives after the keys; none does
    // if the window is gone.
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = m_window;
    event.type = m_connection.atom(kMark);
    event.data.data32[0] = ++m_mark;
    const auto cookie = xcb_send_event_checked(m_connection.xcb(), false, m_window, XCB_EVENT_MASK_NO_EVENT,
                                               reinterpret_cast<const char *>(&event));
    return !owned(xcb_request_check(m_connection.xcb(), cookie));
}

bool TypedKeys::isMark(const xcb_client_message_event_t &event)
{
    return event.type == m_connection.atom(kMark);
}

bool TypedKeys::nativeEventFilter(const QByteArray &eventType, void *message, qintptr *)
{
    if (m_window == XCB_NONE || eventType != "xcb_generic_event_t")
        return false;
    switch (static_cast<const xcb_generic_event_t *>(message)->response_type & kEventType) {
    case XCB_KEY_PRESS: {
        const auto &key = *static_cast<const xcb_key_press_event_t *>(message);
        if (key.event == m_window && !m_isHolding) {
            tellOfFocus();
            // What was done on the canvases before it comes first.
            m_connection.catchUp();
        }
        return key.event == m_window && takes(key);
    }
    case XCB_KEY_RELEASE: {
        const auto &key = *static_cast<const xcb_key_release_event_t *>(message);
        if (key.event == m_window)
            m_down.reset(key.detail);
        return false;
    }
    case XCB_CLIENT_MESSAGE: {
        const auto &event = *static_cast<const xcb_client_message_event_t *>(message);
        if (!isMark(event))
            return false;
        // Qt has read the keys by now, and hands them on when it has read all that there is.
        resumeFrom(event.data.data32[0]);
        return true;
    }
    default:
        return false;
    }
}

void TypedKeys::tellOfFocus()
{
    const QWindow *focused = QGuiApplication::focusWindow();
    if (focused && focused->winId() == m_window)
        return;
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::ExcludeSocketNotifiers);
}

bool TypedKeys::takes(const xcb_key_press_event_t &event)
{
    const bool isRepeat = m_down.test(event.detail);
    m_down.set(event.detail);
    if (isRepeat)
        remember(m_repeats, keyOf(event));
    // What was announced came before everything that has not been read on our connection.
    const bool isEarly = wasAnnounced(keyOf(event));
    if (!m_isHolding)
        return false;
    const bool waits = m_press.empty() ? !isEarly : !isEarly && isAfterPress(event.time);
    if (!waits && !m_closed)
        return false;
    // Repeats belong to whom the hand pressed the key for.
    if (isRepeat)
        return true;
    if (waits)
        m_waiting.push_back(event);
    else
        m_handleKey(m_canvas, event);
    return true;
}

bool TypedKeys::wasAnnounced(const Key &key)
{
    const auto found = std::find(m_announced.begin(), m_announced.end(), key);
    if (found == m_announced.end())
        return false;
    m_announced.erase(m_announced.begin(), found + 1);
    return true;
}

bool TypedKeys::isAfterPress(xcb_timestamp_t time) const
{
    return !isLater(pressOf(m_press).time, time);
}

bool TypedKeys::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_closed.data() || event->type() != QEvent::KeyPress)
        return false;
    // Qt had read it before it handled the key that closed the window.
    const auto &key = static_cast<const QKeyEvent &>(*event);
    xcb_key_press_event_t native = {};
    native.detail = static_cast<xcb_keycode_t>(key.nativeScanCode());
    native.state = static_cast<std::uint16_t>(key.nativeModifiers());
    native.time = static_cast<xcb_timestamp_t>(key.timestamp());
    if (std::find(m_repeats.begin(), m_repeats.end(), keyOf(native)) == m_repeats.end())
        m_handleKey(m_canvas, native);
    return true;
}

void TypedKeys::resumeFrom(std::uint32_t mark)
{
    const auto resumeIfCurrent = [this, mark] {
        if (mark == m_mark)
            resume();
    };
    QMetaObject::invokeMethod(this, resumeIfCurrent, Qt::QueuedConnection);
}

void TypedKeys::resume()
{
    if (!m_isHolding)
        return; // it took longer than there was patience for
    m_patience.stop();
    m_isHolding = false;
    setWindow(XCB_NONE);
    const std::vector<char> held = std::exchange(m_press, {});
    if (!held.empty())
        m_handlePress(pressOf(held));
    // Whatever else was done before the last of those keys has arrived after this, and comes in its turn.
    m_connection.roundTrip();
    m_connection.resume();
    // There are keys that nobody announces: those that a program sends to the window by itself.
    while (!m_isHolding && !m_waiting.empty())
        handleFirst();
}

void TypedKeys::keyAnnounced(const xcb_input_raw_key_press_event_t &event)
{
    const Key key{event.time, event.detail};
    catchUpWith(key.time);
    if (!m_waiting.empty() && key == keyOf(m_waiting.front()))
        return handleFirst();
    remember(m_announced, key);
}

void TypedKeys::remember(std::deque<Key> &keys, const Key &key)
{
    keys.push_back(key);
    if (keys.size() > kMostRemembered)
        keys.pop_front();
}

void TypedKeys::catchUpWith(xcb_timestamp_t time)
{
    while (!m_isHolding && !m_waiting.empty() && isLater(time, m_waiting.front().time))
        handleFirst();
}

void TypedKeys::handleFirst()
{
    const xcb_key_press_event_t key = m_waiting.front();
    m_waiting.pop_front();
    m_handleKey(m_canvas, key);
}

} // namespace zeigewerk::platform::x11
