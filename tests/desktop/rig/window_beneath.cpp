#include "window_beneath.h"

#include "desktop_session.h"
#include "eventually.h"
#include "rig_error.h"

#include <algorithm>
#include <utility>

namespace zeigewerk::rig {

namespace {

constexpr char kClass[] = "beneath\0Beneath";

/// ICCCM's WM_NORMAL_HINTS: the user chose place and size, so window managers keep them.
struct SizeHints
{
    std::uint32_t flags = 1 | 2; // USPosition, USSize
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::uint32_t rest[13] = {};
};

/// Motif's hints, which every window manager understands: no frame, so that the window is exactly where it
/// was placed.
struct MotifHints
{
    std::uint32_t flags = 2; // decorations is valid
    std::uint32_t functions = 0;
    std::uint32_t decorations = 0;
    std::int32_t inputMode = 0;
    std::uint32_t status = 0;
};

InputEvent pointerOrKey(InputEvent::Kind kind, const xcb_button_press_event_t &event)
{
    // Button, motion and key events have the same layout; only the meaning of the detail differs.
    InputEvent recorded{.kind = kind, .place = QPoint(event.root_x, event.root_y), .state = event.state};
    if (kind == InputEvent::Kind::ButtonPress || kind == InputEvent::Kind::ButtonRelease)
        recorded.button = event.detail;
    if (kind == InputEvent::Kind::KeyPress || kind == InputEvent::Kind::KeyRelease)
        recorded.key = static_cast<Key>(event.detail);
    return recorded;
}

InputEvent focus(InputEvent::Kind kind, const xcb_focus_in_event_t &event)
{
    return {.kind = kind,
            .isByGrab = event.mode == XCB_NOTIFY_MODE_GRAB || event.mode == XCB_NOTIFY_MODE_UNGRAB};
}

} // namespace

WindowBeneath::WindowBeneath(DesktopSession &session, const QRect &rect, const QColor &color)
    : m_session(session)
    , m_client(session.display().name())
{
    create(rect, color);
    setHints(rect);
    xcb_map_window(m_client.connection(), m_id);
    if (!awaitPlace(rect))
        failRig(QStringLiteral("the window beneath is at the wrong place: ") + currentPlace());
}

void WindowBeneath::create(const QRect &rect, const QColor &color)
{
    m_id = xcb_generate_id(m_client.connection());
    const std::uint32_t values[] = {
        color.rgb() & 0xFFFFFFu,
        XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE | XCB_EVENT_MASK_BUTTON_MOTION |
            XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE | XCB_EVENT_MASK_FOCUS_CHANGE,
    };
    xcb_create_window(m_client.connection(), XCB_COPY_FROM_PARENT, m_id, m_client.root(),
                      static_cast<std::int16_t>(rect.x()), static_cast<std::int16_t>(rect.y()),
                      static_cast<std::uint16_t>(rect.width()), static_cast<std::uint16_t>(rect.height()), 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values);
}

void WindowBeneath::setHints(const QRect &rect)
{
    xcb_connection_t *c = m_client.connection();
    const auto setWords = [&](xcb_atom_t name, xcb_atom_t type, const auto &hints) {
        xcb_change_property(c, XCB_PROP_MODE_REPLACE, m_id, name, type, 32, sizeof(hints) / 4, &hints);
    };
    setWords(XCB_ATOM_WM_NORMAL_HINTS, XCB_ATOM_WM_SIZE_HINTS,
             SizeHints{.x = rect.x(), .y = rect.y(), .width = rect.width(), .height = rect.height()});
    const xcb_atom_t motif = m_client.atom("_MOTIF_WM_HINTS");
    setWords(motif, motif, MotifHints{});
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, m_id, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8, sizeof(kClass),
                        kClass);
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, m_id, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8, 7, kClass);
}

bool WindowBeneath::awaitPlace(const QRect &rect)
{
    xcb_flush(m_client.connection());
    bool hasAskedAgain = false;
    return eventually([&] {
        const std::optional<WindowInfo> now = m_session.client().window(m_id);
        if (!now || !now->viewable)
            return false;
        // Some window managers open windows on the focused screen, but allow them to move afterwards.
        if (now->geometry != rect && !std::exchange(hasAskedAgain, true))
            moveTo(rect);
        return now->geometry == rect;
    });
}

void WindowBeneath::moveTo(const QRect &rect)
{
    const std::uint32_t values[] = {
        static_cast<std::uint32_t>(rect.x()), static_cast<std::uint32_t>(rect.y()),
        static_cast<std::uint32_t>(rect.width()), static_cast<std::uint32_t>(rect.height())};
    xcb_configure_window(m_client.connection(), m_id,
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                             XCB_CONFIG_WINDOW_HEIGHT,
                         values);
    xcb_flush(m_client.connection());
}

QString WindowBeneath::currentPlace()
{
    const std::optional<WindowInfo> now = m_session.client().window(m_id);
    if (!now || !now->viewable)
        return QStringLiteral("not on the screen");
    const QRect &at = now->geometry;
    return QStringLiteral("%1x%2+%3+%4").arg(at.width()).arg(at.height()).arg(at.x()).arg(at.y());
}

bool WindowBeneath::takeFocus()
{
    constexpr std::uint32_t kFromPager = 2;
    if (m_session.windowManagerProcessId() != 0)
        m_client.sendToRoot(m_id, "_NET_ACTIVE_WINDOW", {kFromPager, XCB_CURRENT_TIME, 0});
    else
        xcb_set_input_focus(m_client.connection(), XCB_INPUT_FOCUS_PARENT, m_id, XCB_CURRENT_TIME);
    return eventually([&] { return hasFocus(); });
}

bool WindowBeneath::opensWithFocus()
{
    if (m_session.windowManagerProcessId() == 0)
        return takeFocus();
    return eventually([&] { return hasFocus(); });
}

bool WindowBeneath::raise()
{
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(m_client.connection(), m_id, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    // Without a window manager the window is raised now, however busy the server is with other clients.
    m_client.roundTrip();
    // Override-redirect windows do not count: they choose their own place in the stack.
    return eventually([&] {
        Client &client = m_session.client();
        const xcb_window_t top = client.topLevelOf(m_id);
        const QList<xcb_window_t> stack = client.stackedChildren(client.root());
        for (auto window = stack.crbegin(); window != stack.crend() && *window != top; ++window) {
            const std::optional<WindowInfo> info = client.window(*window);
            if (info && info->viewable && !info->overrideRedirect && !info->inputOnly)
                return false;
        }
        return stack.contains(top);
    });
}

bool WindowBeneath::setFullScreen(bool on)
{
    if (m_session.windowManagerProcessId() == 0)
        return !on || raise();
    const xcb_atom_t state = m_client.atom("_NET_WM_STATE_FULLSCREEN");
    m_client.sendToRoot(m_id, "_NET_WM_STATE", {on ? 1u : 0u, state, 0, 1});
    return eventually([&] { return m_client.property(m_id, "_NET_WM_STATE").contains(state) == on; });
}

bool WindowBeneath::hide()
{
    // The window manager may have put a frame around it.
    const xcb_window_t frame = m_session.client().topLevelOf(m_id);
    xcb_unmap_window(m_client.connection(), m_id);
    xcb_flush(m_client.connection());
    return eventually([&] {
        Client &client = m_session.client();
        const std::optional<WindowInfo> now = client.window(m_id);
        const std::optional<WindowInfo> around = client.window(frame);
        return now && !now->viewable && (!around || !around->viewable);
    });
}

const QList<InputEvent> &WindowBeneath::events()
{
    while (const auto event = owned(xcb_poll_for_event(m_client.connection())))
        record(*event);
    return m_events;
}

void WindowBeneath::record(const xcb_generic_event_t &event)
{
    const auto &input = reinterpret_cast<const xcb_button_press_event_t &>(event);
    const auto &focused = reinterpret_cast<const xcb_focus_in_event_t &>(event);
    constexpr int kSentFlag = 0x80;
    switch (event.response_type & ~kSentFlag) {
    case XCB_BUTTON_PRESS:
        m_events.append(pointerOrKey(InputEvent::Kind::ButtonPress, input));
        break;
    case XCB_BUTTON_RELEASE:
        m_events.append(pointerOrKey(InputEvent::Kind::ButtonRelease, input));
        break;
    case XCB_MOTION_NOTIFY:
        m_events.append(pointerOrKey(InputEvent::Kind::DragMotion, input));
        break;
    case XCB_KEY_PRESS:
        m_events.append(pointerOrKey(InputEvent::Kind::KeyPress, input));
        break;
    case XCB_KEY_RELEASE:
        m_events.append(pointerOrKey(InputEvent::Kind::KeyRelease, input));
        break;
    case XCB_FOCUS_IN:
        m_events.append(focus(InputEvent::Kind::FocusIn, focused));
        break;
    case XCB_FOCUS_OUT:
        m_events.append(focus(InputEvent::Kind::FocusOut, focused));
        break;
    default:
        break;
    }
}

void WindowBeneath::forget()
{
    events();
    m_events.clear();
}

QList<QPoint> WindowBeneath::placesOf(InputEvent::Kind kind, int button)
{
    QList<QPoint> places;
    for (const InputEvent &event : events())
        if (event.kind == kind && event.button == button)
            places.append(event.place);
    return places;
}

QList<QPoint> WindowBeneath::presses(int button)
{
    return placesOf(InputEvent::Kind::ButtonPress, button);
}

QList<QPoint> WindowBeneath::releases(int button)
{
    return placesOf(InputEvent::Kind::ButtonRelease, button);
}

QList<QPoint> WindowBeneath::dragMotions()
{
    return placesOf(InputEvent::Kind::DragMotion, 0);
}

QList<Key> WindowBeneath::pressedKeys()
{
    QList<Key> keys;
    for (const InputEvent &event : events())
        if (event.kind == InputEvent::Kind::KeyPress)
            keys.append(event.key);
    return keys;
}

} // namespace zeigewerk::rig
