#include "platform/x11/x11_desktop.h"

#include "platform/x11/x11_surface.h"
#include "platform/x11/x11_widget_window.h"

#include <QCoreApplication>
#include <QGuiApplication>

#include <xcb/shm.h>

#include <algorithm>
#include <cstdio>

namespace zeigewerk::platform::x11 {

namespace {

constexpr int kExitCodeOfLostDisplay = 1;
/// The high bit of an event's type says that a client sent it.
constexpr std::uint8_t kEventType = 0x7F;

template <typename Event>
const Event &as(const xcb_generic_event_t &event)
{
    return reinterpret_cast<const Event &>(event);
}

} // namespace

X11Desktop::X11Desktop(std::unique_ptr<Connection> connection)
    : m_connection(std::move(connection))
    , m_screens(*m_connection)
    , m_focus(*m_connection)
    , m_keymap(*m_connection)
    , m_compositing(*m_connection)
    , m_stacking(
          *m_connection, [this] { return windowsFromBottom(); }, [this] { return nativeScreens(); })
    , m_hotKeys(*m_connection)
    , m_scrolling(*m_connection)
{
    if (const auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>())
        m_connection->adoptWindowsOf(x11->connection());
    connect(m_connection.get(), &Connection::lost, this, [] {
        std::fputs("zeigewerk: the X11 display has gone away\n", stderr);
        QCoreApplication::exit(kExitCodeOfLostDisplay);
    });
    connect(&m_compositing, &Compositing::changed, this, [this] {
        for (X11Surface *surface : m_surfaces)
            surface->compositingChanged();
        Q_EMIT compositingChanged();
    });
    connect(&m_screens, &X11Screens::changed, this, &Desktop::screensChanged);
    m_connection->start([this](const xcb_generic_event_t &event) { handle(event); },
                        [this] { displayAll(); });
}

X11Desktop::~X11Desktop()
{
    m_focus.handBack();
}

std::unique_ptr<Surface> X11Desktop::makeSurface(SurfaceRole role, const QRectF &frame)
{
    return std::make_unique<X11Surface>(*this, role, frame);
}

std::unique_ptr<WidgetWindow> X11Desktop::makeWindow(WidgetRole role, QWidget &widget,
                                                     const QMargins &ornament)
{
    return std::make_unique<X11WidgetWindow>(*this, role, widget, ornament);
}

std::optional<Screen> X11Desktop::mainScreen() const
{
    const std::vector<Screen> all = screens();
    return all.empty() ? std::nullopt : std::optional(all.front());
}

QPointF X11Desktop::mouseLocation() const
{
    const auto cookie = xcb_query_pointer(m_connection->xcb(), m_connection->root());
    const auto reply = owned(xcb_query_pointer_reply(m_connection->xcb(), cookie, nullptr));
    return reply ? layout().pointOfPixel(QPointF(reply->root_x, reply->root_y)) : QPointF();
}

void X11Desktop::handle(const xcb_generic_event_t &event)
{
    const std::uint8_t type = event.response_type & kEventType;
    switch (type) {
    case 0:
        if (as<xcb_generic_error_t>(event).major_code == m_connection->shmOpcode())
            putFailed();
        qCDebug(logX11, "error %u of request %u", as<xcb_generic_error_t>(event).error_code,
                as<xcb_generic_error_t>(event).major_code);
        return;
    case XCB_GE_GENERIC:
        return handleInput(as<xcb_ge_generic_event_t>(event));
    case XCB_KEY_PRESS:
    case XCB_KEY_RELEASE:
        return handleKey(as<xcb_key_press_event_t>(event), type == XCB_KEY_PRESS);
    case XCB_FOCUS_OUT:
        return m_focus.focusOut(as<xcb_focus_out_event_t>(event));
    case XCB_CONFIGURE_NOTIFY:
        return m_stacking.structureChanged(as<xcb_configure_notify_event_t>(event).window);
    case XCB_MAP_NOTIFY:
        return m_stacking.structureChanged(as<xcb_map_notify_event_t>(event).window);
    case XCB_REPARENT_NOTIFY:
        return m_stacking.structureChanged(as<xcb_reparent_notify_event_t>(event).window);
    case XCB_CIRCULATE_NOTIFY:
        return m_stacking.structureChanged(as<xcb_circulate_notify_event_t>(event).window);
    case XCB_EXPOSE: {
        const auto &expose = as<xcb_expose_event_t>(event);
        if (X11Surface *surface = surfaceOf(expose.window))
            surface->exposed({expose.x, expose.y, expose.width, expose.height});
        return;
    }
    default:
        break;
    }
    if (type == m_connection->xkbEvent())
        m_keymap.invalidate();
    else if (m_screens.isChangeEvent(type))
        m_screens.changeAnnounced();
    else if (m_compositing.isChangeEvent(type))
        m_compositing.ownerChanged();
    else if (m_connection->hasSharedMemory() && type == m_connection->shmCompletionEvent()) {
        if (X11Surface *surface = surfaceOf(as<xcb_shm_completion_event_t>(event).drawable))
            surface->putCompleted(as<xcb_shm_completion_event_t>(event).shmseg);
    }
}

void X11Desktop::handleInput(const xcb_ge_generic_event_t &event)
{
    if (event.extension != m_connection->xinputOpcode())
        return;
    if (event.event_type == XCB_INPUT_DEVICE_CHANGED || event.event_type == XCB_INPUT_HIERARCHY)
        return m_scrolling.devicesChanged(event);
    if (event.event_type == XCB_INPUT_ENTER)
        return m_scrolling.pointerEntered();
    const auto &input = reinterpret_cast<const xcb_input_button_press_event_t &>(event);
    X11Surface *surface = surfaceOf(input.event);
    if (!surface)
        return;
    switch (event.event_type) {
    case XCB_INPUT_BUTTON_PRESS:
        surface->buttonPressed(input);
        return surface->scrolled(m_scrolling.buttonPressed(input), input);
    case XCB_INPUT_BUTTON_RELEASE:
        return surface->buttonReleased(input);
    case XCB_INPUT_MOTION:
        surface->pointerMoved(input);
        return surface->scrolled(m_scrolling.pointerMoved(input), input);
    default:
        return;
    }
}

void X11Desktop::handleKey(const xcb_key_press_event_t &event, bool isPress)
{
    X11Surface *surface = surfaceOf(event.event);
    if (!isPress) {
        m_focus.keyReleased(event.detail);
        m_hotKeys.keyReleased(event);
    } else if (surface) {
        m_focus.keyIsHandled(event.detail);
        surface->keyPressed(m_keymap.keyEvent(event));
        m_focus.noKeyIsHandled();
    } else if (event.event == m_connection->root()) {
        m_hotKeys.keyPressed(event);
    }
}

void X11Desktop::putFailed()
{
    // A put that failed is not reported as completed, and nothing tells whose it was.
    for (X11Surface *surface : m_surfaces)
        surface->putFailed();
}

void X11Desktop::displayAll()
{
    for (X11Surface *surface : m_surfaces)
        surface->display();
}

void X11Desktop::surfaceGone(X11Surface &surface)
{
    m_surfaces.erase(std::remove(m_surfaces.begin(), m_surfaces.end(), &surface), m_surfaces.end());
}

X11Surface *X11Desktop::surfaceOf(xcb_window_t window) const
{
    const auto isThat = [window](const X11Surface *surface) { return surface->owns(window); };
    const auto found = std::find_if(m_surfaces.begin(), m_surfaces.end(), isThat);
    return found == m_surfaces.end() ? nullptr : *found;
}

std::vector<xcb_window_t> X11Desktop::windowsFromBottom() const
{
    std::vector<const X11Surface *> shown;
    std::copy_if(m_surfaces.begin(), m_surfaces.end(), std::back_inserter(shown),
                 [](const X11Surface *surface) { return surface->isVisible(); });
    std::sort(shown.begin(), shown.end(), [](const X11Surface *a, const X11Surface *b) {
        return std::pair(levelOf(a->role()), a->orderedFront()) <
               std::pair(levelOf(b->role()), b->orderedFront());
    });
    std::vector<xcb_window_t> windows;
    for (const X11Surface *surface : shown) {
        const std::vector<xcb_window_t> ofSurface = surface->shownWindows();
        windows.insert(windows.end(), ofSurface.begin(), ofSurface.end());
    }
    return windows;
}

std::vector<QRect> X11Desktop::nativeScreens() const
{
    std::vector<QRect> frames;
    for (const Screen &screen : layout().screens())
        frames.push_back(screen.nativeFrame);
    return frames;
}

} // namespace zeigewerk::platform::x11
