#include "other_windows.h"

#include "desktop_session.h"
#include "text_of.h"

#include <algorithm>
#include <array>

namespace zeigewerk::rig {

namespace {

/// More would only cover each other.
constexpr std::size_t kMaxWindows = 4;
constexpr std::size_t kMaxPopups = 3;
const QRect kOpenArea(-100, -50, 2800, 1000);
const QString kNone = QStringLiteral("skipped: there is none");

/// As large as a menu, an application, or a screen, like a screen locker.
QRect randomRect(RandomChoice &random)
{
    constexpr std::array kSizes = {QSize(200, 300), QSize(900, 600), QSize(1280, 1024)};
    const QSize size = random.of(kSizes);
    return {random.oneIn(4) ? QPoint(0, 0) : random.in(kOpenArea), size};
}

} // namespace

OtherWindows::OtherWindows(DesktopSession &session)
    : m_session(session)
    , m_client(session.display().name())
{
}

xcb_window_t OtherWindows::randomWindow(RandomChoice &random)
{
    return m_windows.empty() ? xcb_window_t{XCB_WINDOW_NONE} : random.of(m_windows);
}

Popup *OtherWindows::randomPopup(RandomChoice &random)
{
    return m_popups.empty() ? nullptr : random.of(m_popups).get();
}

QString OtherWindows::openWindow(RandomChoice &random)
{
    if (m_windows.size() == kMaxWindows)
        return closeWindow(random);
    const QRect rect = randomRect(random);
    xcb_connection_t *xcb = m_client.connection();
    const xcb_window_t id = xcb_generate_id(xcb);
    const std::uint32_t color = 0x808080;
    xcb_create_window(xcb, XCB_COPY_FROM_PARENT, id, m_client.root(), static_cast<std::int16_t>(rect.x()),
                      static_cast<std::int16_t>(rect.y()), static_cast<std::uint16_t>(rect.width()),
                      static_cast<std::uint16_t>(rect.height()), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL, &color);
    xcb_map_window(xcb, id);
    m_client.roundTrip();
    m_windows.push_back(id);
    return textOf(rect);
}

QString OtherWindows::closeWindow(RandomChoice &random)
{
    if (m_windows.empty())
        return kNone;
    const auto closed = m_windows.begin() + random.below(static_cast<int>(m_windows.size()));
    xcb_destroy_window(m_client.connection(), *closed);
    m_client.roundTrip();
    m_windows.erase(closed);
    return {};
}

QString OtherWindows::activateWindow(RandomChoice &random)
{
    constexpr std::uint32_t kFromPager = 2;
    const xcb_window_t window = randomWindow(random);
    if (window == XCB_WINDOW_NONE)
        return kNone;
    m_client.sendToRoot(window, "_NET_ACTIVE_WINDOW", {kFromPager, XCB_CURRENT_TIME, 0});
    return {};
}

QString OtherWindows::takeKeyboard(RandomChoice &random)
{
    const xcb_window_t window = randomWindow(random);
    if (window == XCB_WINDOW_NONE)
        return kNone;
    m_client.setInputFocus(window);
    return {};
}

QString OtherWindows::raiseWindow(RandomChoice &random)
{
    const xcb_window_t window = randomWindow(random);
    if (window == XCB_WINDOW_NONE)
        return kNone;
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(m_client.connection(), window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    m_client.roundTrip();
    return {};
}

QString OtherWindows::toggleFullScreen(RandomChoice &random)
{
    constexpr std::uint32_t kToggle = 2;
    const xcb_window_t window = randomWindow(random);
    if (window == XCB_WINDOW_NONE)
        return kNone;
    m_client.sendToRoot(window, "_NET_WM_STATE", {kToggle, m_client.atom("_NET_WM_STATE_FULLSCREEN"), 0, 1});
    return {};
}

bool OtherWindows::hasFullScreenWindow()
{
    const xcb_atom_t fullScreen = m_client.atom("_NET_WM_STATE_FULLSCREEN");
    return std::any_of(m_windows.begin(), m_windows.end(), [&](xcb_window_t window) {
        return m_client.property(window, "_NET_WM_STATE").contains(fullScreen);
    });
}

QString OtherWindows::openPopup(RandomChoice &random)
{
    if (m_popups.size() == kMaxPopups)
        return closePopup(random);
    const QRect rect = randomRect(random);
    m_popups.push_back(std::make_unique<Popup>(m_session, rect, QColor(0xC0, 0xC0, 0xC0)));
    return textOf(rect);
}

QString OtherWindows::closePopup(RandomChoice &random)
{
    if (m_popups.empty())
        return kNone;
    const auto closed = m_popups.begin() + random.below(static_cast<int>(m_popups.size()));
    if (closed->get() == m_grabber)
        m_grabber = nullptr;
    m_popups.erase(closed);
    return {};
}

QString OtherWindows::raisePopup(RandomChoice &random)
{
    const Popup *popup = randomPopup(random);
    if (!popup)
        return kNone;
    popup->raise();
    return {};
}

QString OtherWindows::togglePointerGrab(RandomChoice &random)
{
    if (m_grabber) {
        m_grabber->ungrabPointer();
        m_grabber = nullptr;
        return QStringLiteral("release");
    }
    Popup *popup = randomPopup(random);
    if (!popup)
        return kNone;
    if (!popup->grabPointer())
        return QStringLiteral("refused: the pointer is grabbed");
    m_grabber = popup;
    return QStringLiteral("grab");
}

void OtherWindows::closeAll()
{
    m_grabber = nullptr;
    m_popups.clear();
    for (const xcb_window_t window : m_windows)
        xcb_destroy_window(m_client.connection(), window);
    m_windows.clear();
    m_client.roundTrip();
}

} // namespace zeigewerk::rig
