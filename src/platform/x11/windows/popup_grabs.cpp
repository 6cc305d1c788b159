#include "platform/x11/windows/popup_grabs.h"

#include "platform/x11/reply.h"

#include <QEvent>
#include <QGuiApplication>
#include <QWindow>

#include <xcb/xinput.h>

#include <algorithm>
#include <chrono>

namespace zeigewerk::platform::x11 {

using namespace std::chrono_literals;

namespace {

/// The server sends no event when another program's grab ends, so it is tried again.
constexpr auto kAskAgainAfter = 50ms;

bool isOpenMenu(const QWindow *window)
{
    return window->type() == Qt::Popup && window->isVisible();
}

/// Grabs the pointer on Qt's connection, where a second grab by Qt then succeeds as well. Qt itself ignores
/// whether its grab succeeded.
bool takePointer(const QWindow &menu)
{
    const auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11)
        return false;
    xcb_connection_t *xcb = x11->connection();
    const auto pointer = owned(xcb_input_xi_get_client_pointer_reply(
        xcb, xcb_input_xi_get_client_pointer(xcb, XCB_WINDOW_NONE), nullptr));
    if (!pointer)
        return false;
    constexpr std::uint32_t kEvents = XCB_INPUT_XI_EVENT_MASK_BUTTON_PRESS |
                                      XCB_INPUT_XI_EVENT_MASK_BUTTON_RELEASE | XCB_INPUT_XI_EVENT_MASK_MOTION;
    const auto cookie = xcb_input_xi_grab_device(
        xcb, static_cast<xcb_window_t>(menu.winId()), XCB_CURRENT_TIME, XCB_CURSOR_NONE, pointer->deviceid,
        XCB_INPUT_GRAB_MODE_22_ASYNC, XCB_INPUT_GRAB_MODE_22_ASYNC, false, 1, &kEvents);
    const auto reply = owned(xcb_input_xi_grab_device_reply(xcb, cookie, nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

} // namespace

PopupGrabs::PopupGrabs()
{
    m_grabbing.setSingleShot(true);
    m_grabbing.callOnTimeout(this, &PopupGrabs::grab);
    qGuiApp->installEventFilter(this);
}

bool PopupGrabs::eventFilter(QObject *watched, QEvent *event)
{
    // At this event the window is not mapped yet.
    if (event->type() == QEvent::Show && watched->isWindowType())
        m_grabbing.start(0);
    return QObject::eventFilter(watched, event);
}

void PopupGrabs::grab()
{
    const QWindowList windows = QGuiApplication::topLevelWindows();
    const auto found = std::find_if(windows.begin(), windows.end(), &isOpenMenu);
    if (found == windows.end())
        return;
    QWindow &menu = **found;
    // Each on its own: the keyboard alone is enough for Esc to close the menu. The grabs end with the menu.
    const bool hasKeyboard = menu.setKeyboardGrabEnabled(true);
    const bool hasPointer = takePointer(menu) && menu.setMouseGrabEnabled(true);
    if (!hasKeyboard || !hasPointer)
        m_grabbing.start(kAskAgainAfter);
}

} // namespace zeigewerk::platform::x11
