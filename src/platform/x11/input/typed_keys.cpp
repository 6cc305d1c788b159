#include "platform/x11/input/typed_keys.h"

#include "platform/x11/input/key_announcements.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QWindow>

#include <chrono>
#include <utility>

namespace zeigewerk::platform::x11 {

namespace {

constexpr char kMark[] = "_ZEIGEWERK_TYPED_KEYS";
/// The mark normally comes back within a millisecond. If it is lost, the pointer must not hang forever.
constexpr std::chrono::seconds kMarkTimeout(1);

/// Includes what xcb stores behind the first 32 bytes.
std::size_t sizeOf(const xcb_input_button_press_event_t &event)
{
    return sizeof(xcb_generic_event_t) + 4 * std::size_t{event.length};
}

KeyOrder::Key keyOf(const xcb_key_press_event_t &event)
{
    return {.stamp = {.time = event.time, .code = event.detail}, .modifiers = event.state};
}

KeyOrder::Key keyOf(const QKeyEvent &event)
{
    return {.stamp = {.time = static_cast<xcb_timestamp_t>(event.timestamp()),
                      .code = static_cast<xcb_keycode_t>(event.nativeScanCode())},
            .modifiers = static_cast<std::uint16_t>(event.nativeModifiers())};
}

} // namespace

TypedKeys::TypedKeys(Connection &connection, HandlePress handlePress, HandleKey handleKey)
    : m_connection(connection)
    , m_handlePress(std::move(handlePress))
    , m_handleKey(std::move(handleKey))
{
    m_markTimeout.setSingleShot(true);
    m_markTimeout.setInterval(kMarkTimeout);
    m_markTimeout.callOnTimeout(this, [this] { m_order.giveUp(); });
    QCoreApplication::instance()->installNativeEventFilter(this);
}

TypedKeys::~TypedKeys()
{
    QCoreApplication::instance()->removeNativeEventFilter(this);
}

void TypedKeys::holdPress(const xcb_input_button_press_event_t &press, xcb_window_t field)
{
    const auto *bytes = reinterpret_cast<const char *>(&press);
    m_press.assign(bytes, bytes + sizeOf(press));
    m_order.holdPress({.time = press.time, .canvas = press.event}, field);
}

void TypedKeys::windowCloses(xcb_window_t field, QWidget &widget, xcb_window_t keyboardOwner)
{
    if (!m_order.closeField(field, keyboardOwner))
        return;
    m_closed = &widget;
    widget.installEventFilter(this);
    connect(&widget, &QObject::destroyed, this, &TypedKeys::widgetDeleted, Qt::UniqueConnection);
}

void TypedKeys::widgetDeleted(const QObject *widget)
{
    if (widget != m_closed)
        return;
    m_closed = nullptr;
    m_order.closedFieldDeleted();
}

void TypedKeys::keyAnnounced(const xcb_input_raw_key_press_event_t &event)
{
    // X has no key codes of more than eight bits.
    m_order.keyAnnounced({.time = event.time, .code = static_cast<xcb_keycode_t>(event.detail)});
}

bool TypedKeys::nativeEventFilter(const QByteArray &eventType, void *message, qintptr *)
{
    if (m_order.field() == KeyOrder::kNoWindow || eventType != "xcb_generic_event_t")
        return false;
    switch (static_cast<const xcb_generic_event_t *>(message)->response_type & kEventType) {
    case XCB_KEY_PRESS:
        return interceptKey(*static_cast<const xcb_key_press_event_t *>(message));
    case XCB_KEY_RELEASE: {
        const auto &key = *static_cast<const xcb_key_release_event_t *>(message);
        m_order.keyReleased(key.event, key.detail);
        return false;
    }
    case XCB_CLIENT_MESSAGE:
        return interceptMark(*static_cast<const xcb_client_message_event_t *>(message));
    default:
        return false;
    }
}

bool TypedKeys::interceptKey(const xcb_key_press_event_t &event)
{
    if (event.event == m_order.field() && !m_order.isHolding()) {
        processPendingFocusIn();
        // What happened on the canvases before this key comes first.
        m_connection.catchUp();
    }
    return m_order.interceptKey(event.event, keyOf(event));
}

void TypedKeys::processPendingFocusIn() const
{
    const QWindow *focused = QGuiApplication::focusWindow();
    if (focused && focused->winId() == m_order.field())
        return;
    // Otherwise Qt handles FocusIn after all events that it has read, and the keys among them get neither
    // accents nor an input method.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::ExcludeSocketNotifiers);
}

bool TypedKeys::interceptMark(const xcb_client_message_event_t &event)
{
    if (event.type != m_connection.atom(kMark))
        return false;
    releaseLater(event.data.data32[0]);
    return true;
}

bool TypedKeys::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_closed || event->type() != QEvent::KeyPress)
        return false;
    return m_order.interceptKeyOfClosedField(keyOf(static_cast<const QKeyEvent &>(*event)));
}

void TypedKeys::startAnnouncements()
{
    startAnnouncingKeys(m_connection);
}

void TypedKeys::stopAnnouncements()
{
    stopAnnouncingKeys(m_connection);
}

void TypedKeys::pauseConnection()
{
    m_connection.pause();
    m_markTimeout.start();
}

void TypedKeys::resumeConnection()
{
    m_markTimeout.stop();
    // Fetches everything that happened before the last of the waiting keys.
    m_connection.roundTrip();
    m_connection.resume();
}

bool TypedKeys::sendMark(xcb_window_t field, std::uint32_t mark)
{
    // The server delivers a window's events to a client in order, so the mark arrives behind the keys.
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = field;
    event.type = m_connection.atom(kMark);
    event.data.data32[0] = mark;
    const auto cookie = xcb_send_event_checked(m_connection.xcb(), false, field, XCB_EVENT_MASK_NO_EVENT,
                                               reinterpret_cast<const char *>(&event));
    return !owned(xcb_request_check(m_connection.xcb(), cookie));
}

void TypedKeys::releaseLater(std::uint32_t mark)
{
    // Qt hands the keys to its windows once it has read everything that has arrived, and runs queued calls
    // after that.
    QMetaObject::invokeMethod(
        this, [this, mark] { m_order.release(mark); }, Qt::QueuedConnection);
}

void TypedKeys::handlePress()
{
    const std::vector<char> press = std::exchange(m_press, {});
    m_handlePress(*reinterpret_cast<const xcb_input_button_press_event_t *>(press.data()));
}

void TypedKeys::handleKey(xcb_window_t canvas, const KeyOrder::Key &key)
{
    xcb_key_press_event_t event = {};
    event.time = key.stamp.time;
    event.detail = key.stamp.code;
    event.state = key.modifiers;
    m_handleKey(canvas, event);
}

} // namespace zeigewerk::platform::x11
