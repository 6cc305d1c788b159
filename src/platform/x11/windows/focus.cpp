#include "platform/x11/windows/focus.h"

#include "platform/x11/properties.h"

#include <chrono>

namespace zeigewerk::platform::x11 {

namespace {

/// A new window takes the focus when it is mapped. Some window managers give it the focus a second time a
/// little later, so the focus must not be taken back before that.
constexpr std::chrono::milliseconds kTakeAgainAfter(60);
/// After that many attempts, a program that keeps taking the keyboard may have it.
constexpr int kRetries = 20;

bool isWindow(xcb_window_t focus)
{
    return focus != XCB_NONE && focus != XCB_INPUT_FOCUS_POINTER_ROOT;
}

} // namespace

Focus::Focus(Connection &connection)
    : m_connection(connection)
{
    m_takeAgain.setSingleShot(true);
    m_takeAgain.setInterval(kTakeAgainAfter);
    m_takeAgain.callOnTimeout(this, &Focus::takeAgain);
}

xcb_window_t Focus::owner() const
{
    const auto reply = owned(
        xcb_get_input_focus_reply(m_connection.xcb(), xcb_get_input_focus(m_connection.xcb()), nullptr));
    return reply ? reply->focus : xcb_window_t{XCB_NONE};
}

void Focus::remember(xcb_window_t owner)
{
    if (isWindow(owner) && !m_connection.isOurs(owner))
        m_previous = owner;
}

std::optional<QRect> Focus::frameOfOwner() const
{
    const xcb_window_t focus = owner();
    if (!isWindow(focus) || focus == m_connection.root() || m_connection.isOurs(focus))
        return std::nullopt;
    // The focus may be on a child window, even on one without a size outside its parent. Only the top-level
    // window (or the window manager's frame around it) says where the user looks.
    xcb_window_t topLevel = focus;
    for (xcb_window_t parent = focus; parent != m_connection.root();) {
        topLevel = parent;
        const auto cookie = xcb_query_tree(m_connection.xcb(), topLevel);
        const auto tree = owned(xcb_query_tree_reply(m_connection.xcb(), cookie, nullptr));
        if (!tree)
            return std::nullopt;
        parent = tree->parent;
    }
    const auto cookie = xcb_get_geometry(m_connection.xcb(), topLevel);
    const auto frame = owned(xcb_get_geometry_reply(m_connection.xcb(), cookie, nullptr));
    return frame ? std::optional(QRect(frame->x, frame->y, frame->width, frame->height)) : std::nullopt;
}

void Focus::borrow()
{
    if (m_isBorrowed)
        return;
    m_isBorrowed = true;
    m_previous = XCB_NONE;
    remember(owner());
}

void Focus::give(xcb_window_t window)
{
    m_retriesLeft = kRetries;
    set(window);
}

void Focus::set(xcb_window_t window)
{
    m_takeAgain.stop();
    m_key = window;
    // If the program is killed, the focus follows the pointer, so the desktop stays usable.
    xcb_set_input_focus(m_connection.xcb(), XCB_INPUT_FOCUS_POINTER_ROOT, window, XCB_CURRENT_TIME);
    m_connection.flush();
}

void Focus::forget(xcb_window_t window)
{
    if (m_key != window)
        return;
    m_key = XCB_NONE;
    m_takeAgain.stop();
}

void Focus::handBack()
{
    if (!m_isBorrowed)
        return;
    m_isBorrowed = false;
    m_takeAgain.stop();
    m_key = XCB_NONE;
    const xcb_window_t now = owner();
    if (isWindow(now) && !m_connection.isOurs(now))
        return; // another program has taken it
    if (m_handledKey && isDown(m_handledKey))
        holdUntilRelease(m_handledKey);
    if (m_previous != XCB_NONE && trySet(m_previous))
        return;
    const xcb_window_t client = topmostClient();
    if (client == XCB_NONE || !trySet(client))
        trySet(XCB_INPUT_FOCUS_POINTER_ROOT);
}

bool Focus::trySet(xcb_window_t window)
{
    const auto cookie =
        xcb_set_input_focus_checked(m_connection.xcb(), XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
    return !owned(xcb_request_check(m_connection.xcb(), cookie));
}

void Focus::holdUntilRelease(xcb_keycode_t key)
{
    // The key that ended interaction repeats while it is held. The next focus window must not get the
    // repeats: one Esc too many ends a slide show.
    const auto cookie = xcb_grab_keyboard(m_connection.xcb(), false, m_connection.root(), XCB_CURRENT_TIME,
                                          XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const auto reply = owned(xcb_grab_keyboard_reply(m_connection.xcb(), cookie, nullptr));
    if (!reply || reply->status != XCB_GRAB_STATUS_SUCCESS)
        return;
    m_isHolding = true;
    m_heldKey = key;
}

bool Focus::isDown(xcb_keycode_t key) const
{
    const auto reply =
        owned(xcb_query_keymap_reply(m_connection.xcb(), xcb_query_keymap(m_connection.xcb()), nullptr));
    return reply && (reply->keys[key / 8] & (1U << (key % 8))) != 0;
}

void Focus::keyReleased(xcb_keycode_t key, bool isHotKeyHeld)
{
    if (key == m_heldKey)
        m_heldKey = 0;
    if (!m_isHolding || m_heldKey != 0 || isHotKeyHeld)
        return;
    m_isHolding = false;
    xcb_ungrab_keyboard(m_connection.xcb(), XCB_CURRENT_TIME);
}

void Focus::focusOut(const xcb_focus_out_event_t &event)
{
    // A grab, such as that of our own hot keys, takes the focus only while it lasts. But a focus change
    // during a grab is permanent.
    const bool isPassing = event.mode == XCB_NOTIFY_MODE_GRAB || event.mode == XCB_NOTIFY_MODE_UNGRAB;
    if (m_isBorrowed && event.event == m_key && !isPassing)
        m_takeAgain.start();
}

void Focus::takeAgain()
{
    if (!m_isBorrowed || m_key == XCB_NONE)
        return;
    const xcb_window_t now = owner();
    if (now == m_key || m_retriesLeft == 0)
        return;
    --m_retriesLeft;
    remember(now);
    set(m_key);
}

xcb_window_t Focus::topmostClient()
{
    const std::vector<xcb_window_t> clients =
        NumbersRequest(m_connection, m_connection.root(), "_NET_CLIENT_LIST_STACKING", XCB_ATOM_WINDOW)
            .take();
    for (auto client = clients.rbegin(); client != clients.rend(); ++client) {
        if (!m_connection.isOurs(*client) && isViewable(*client) && !isDock(*client))
            return *client;
    }
    return XCB_NONE;
}

bool Focus::isDock(xcb_window_t window)
{
    const std::vector<xcb_atom_t> types =
        NumbersRequest(m_connection, window, "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM).take();
    // A window lists its types in order of preference, and a dock lists only this one.
    return !types.empty() && types.front() == m_connection.atom("_NET_WM_WINDOW_TYPE_DOCK");
}

bool Focus::isViewable(xcb_window_t window) const
{
    const auto cookie = xcb_get_window_attributes(m_connection.xcb(), window);
    const auto reply = owned(xcb_get_window_attributes_reply(m_connection.xcb(), cookie, nullptr));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

} // namespace zeigewerk::platform::x11
