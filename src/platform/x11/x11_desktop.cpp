#include "platform/x11/x11_desktop.h"

#include "platform/x11/docks.h"
#include "platform/x11/input/compose_table.h"
#include "platform/x11/input/pointer_state.h"
#include "platform/x11/windows/x11_surface.h"
#include "platform/x11/windows/x11_widget_window.h"

#include <QCoreApplication>
#include <QGuiApplication>

namespace zeigewerk::platform::x11 {

namespace {

constexpr int kExitCodeOfLostDisplay = 1;

template <typename Event>
const Event &as(const xcb_generic_event_t &event)
{
    return reinterpret_cast<const Event &>(event);
}

} // namespace

X11Desktop::X11Desktop(std::unique_ptr<Connection> connection)
    : m_connection(std::move(connection))
    , m_lostDisplay(*m_connection)
    , m_screens(*m_connection)
    , m_focus(*m_connection)
    , m_keymap(*m_connection)
    , m_compositor(*m_connection, "_NET_WM_CM_S")
    , m_embeddingTray(*m_connection, "_NET_SYSTEM_TRAY_S")
    , m_stacking(*m_connection, m_screens, m_windowList)
    , m_redrawReminder(*m_connection)
    , m_hotKeys(*m_connection)
    , m_scrolling(*m_connection)
    , m_typedKeys(
          *m_connection, [this](const auto &press) { handlePress(press); },
          [this](xcb_window_t canvas, const auto &key) { handleTyped(canvas, key); })
    , m_eventMonitor(*m_connection, m_screens, m_scrolling)
    , m_windowServices{.connection = *m_connection,
                       .screens = m_screens,
                       .compositor = m_compositor,
                       .focus = m_focus,
                       .typedKeys = m_typedKeys,
                       .surfaces = m_surfaces,
                       .windows = m_windowList,
                       .stacking = m_stacking,
                       .redrawReminder = m_redrawReminder}
{
    if (const auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>())
        m_connection->adoptWindowsOf(x11->connection());
    connect(m_connection.get(), &Connection::lost, this, [] {
        LostDisplay::report();
        QCoreApplication::exit(kExitCodeOfLostDisplay);
    });
    connect(&m_compositor, &SelectionOwner::changed, this, &X11Desktop::notifyCompositingChanged);
    connect(&m_embeddingTray, &SelectionOwner::changed, this, &Desktop::trayChanged);
    connect(&m_screens, &Screens::changed, this, &Desktop::screensChanged);
    m_connection->start([this](const xcb_generic_event_t &event) { handle(event); },
                        [this] { m_surfaces.display(); });
    // Reading the whole table takes a while, so our windows are shown first.
    QMetaObject::invokeMethod(this, &provideComposeTable, Qt::QueuedConnection);
}

X11Desktop::~X11Desktop()
{
    m_focus.handBack();
}

std::unique_ptr<Surface> X11Desktop::makeSurface(SurfaceRole role, const QRectF &frame)
{
    return std::make_unique<X11Surface>(m_windowServices, role, frame);
}

std::unique_ptr<WidgetWindow> X11Desktop::makeWindow(WidgetRole role, QWidget &widget,
                                                     const QMargins &ornament)
{
    return std::make_unique<X11WidgetWindow>(m_windowServices, role, widget, ornament);
}

std::optional<Screen> X11Desktop::mainScreen() const
{
    return layout().screenHolding(m_focus.frameOfOwner().value_or(QRect()));
}

QRectF X11Desktop::visibleFrame(const Screen &screen) const
{
    const QSize desktop = desktopSize(*m_connection);
    const std::vector<Strut> struts = strutsOfDocks(*m_connection, desktop);
    const QRectF visible =
        ScreenLayout::frameOfPart(screen, withoutStruts(screen.nativeFrame, desktop, struts));
    return visible.isEmpty() ? screen.frame : visible;
}

std::optional<QPointF> X11Desktop::mouseLocation() const
{
    const std::optional<PointerState> pointer = queryPointer(*m_connection, layout());
    return pointer ? std::optional(pointer->location) : std::nullopt;
}

void X11Desktop::handle(const xcb_generic_event_t &event)
{
    const std::uint8_t type = event.response_type & kEventType;
    switch (type) {
    case 0:
        qCDebug(logX11, "error %u of request %u", as<xcb_generic_error_t>(event).error_code,
                as<xcb_generic_error_t>(event).major_code);
        return;
    case XCB_GE_GENERIC:
        return handleInput(as<xcb_ge_generic_event_t>(event));
    case XCB_KEY_PRESS:
    case XCB_KEY_RELEASE:
        return handleKey(as<xcb_key_press_event_t>(event), type == XCB_KEY_PRESS);
    case XCB_KEYMAP_NOTIFY:
        return m_heldKeys.adopt(as<xcb_keymap_notify_event_t>(event).keys);
    case XCB_FOCUS_OUT:
        return m_focus.focusOut(as<xcb_focus_out_event_t>(event));
    case XCB_CONFIGURE_NOTIFY:
        return m_stacking.structureChanged(as<xcb_configure_notify_event_t>(event).window);
    case XCB_MAP_NOTIFY:
        return m_stacking.windowMapped(as<xcb_map_notify_event_t>(event).window);
    case XCB_REPARENT_NOTIFY:
        return m_stacking.structureChanged(as<xcb_reparent_notify_event_t>(event).window);
    case XCB_CIRCULATE_NOTIFY:
        return m_stacking.structureChanged(as<xcb_circulate_notify_event_t>(event).window);
    case XCB_EXPOSE: {
        const auto &expose = as<xcb_expose_event_t>(event);
        if (X11Surface *surface = m_surfaces.surfaceOf(expose.window))
            surface->exposed({expose.x, expose.y, expose.width, expose.height});
        return;
    }
    default:
        break;
    }
    if (type == m_connection->xkbEvent()) {
        if (!m_eventMonitor.handleXkb(event))
            m_keymap.invalidate();
    } else if (m_screens.isChangeEvent(type))
        m_screens.changeAnnounced();
    else if (m_compositor.isChangeEvent(type))
        selectionChanged(as<xcb_xfixes_selection_notify_event_t>(event));
}

void X11Desktop::handleInput(const xcb_ge_generic_event_t &event)
{
    if (event.extension != m_connection->xinputOpcode())
        return;
    if (m_eventMonitor.handle(event))
        return;
    if (event.event_type == XCB_INPUT_DEVICE_CHANGED || event.event_type == XCB_INPUT_HIERARCHY)
        return m_scrolling.devicesChanged(event);
    if (event.event_type == XCB_INPUT_ENTER)
        return m_scrolling.surfaceEntered();
    if (event.event_type == XCB_INPUT_RAW_KEY_PRESS)
        return m_typedKeys.keyAnnounced(reinterpret_cast<const xcb_input_raw_key_press_event_t &>(event));
    const auto &input = reinterpret_cast<const xcb_input_button_press_event_t &>(event);
    X11Surface *surface = m_surfaces.surfaceOf(input.event);
    if (!surface)
        return;
    switch (event.event_type) {
    case XCB_INPUT_BUTTON_PRESS:
        return buttonPressed(input, *surface);
    case XCB_INPUT_BUTTON_RELEASE:
        return surface->buttonReleased(input);
    case XCB_INPUT_MOTION:
        surface->pointerMoved(input);
        return surface->scrolled(m_scrolling.pointerMoved(input), input);
    default:
        return;
    }
}

void X11Desktop::buttonPressed(const xcb_input_button_press_event_t &event, X11Surface &surface)
{
    m_typedKeys.handleKeysBefore(event.time);
    const xcb_window_t field = m_focus.key();
    if (event.detail == XCB_BUTTON_INDEX_1 && m_connection->isAdopted(field)) {
        surface.makeKey();
        return m_typedKeys.holdPress(event, field);
    }
    surface.buttonPressed(event);
    surface.scrolled(m_scrolling.buttonPressed(event), event);
}

void X11Desktop::handlePress(const xcb_input_button_press_event_t &press)
{
    if (X11Surface *surface = m_surfaces.surfaceOf(press.event))
        surface->buttonPressed(press);
}

void X11Desktop::handleTyped(xcb_window_t canvas, const xcb_key_press_event_t &key)
{
    if (X11Surface *surface = m_surfaces.surfaceOf(canvas))
        pressKey(*surface, key);
}

void X11Desktop::handleKey(const xcb_key_press_event_t &event, bool isPress)
{
    if (isPress)
        m_typedKeys.handleKeysBefore(event.time);
    X11Surface *surface = m_surfaces.surfaceOf(event.event);
    if (!isPress) {
        m_heldKeys.released(event.detail);
        m_hotKeys.keyReleased(event);
        if (m_focus.isHolding())
            m_hotKeys.forgetReleased();
        m_focus.keyReleased(event.detail, m_hotKeys.isAnyHeld());
    } else if (surface) {
        if (!m_heldKeys.acceptPress(event.detail))
            return;
        pressKey(*surface, event);
    } else if (event.event == m_connection->root()) {
        m_hotKeys.keyPressed(event);
    }
}

void X11Desktop::pressKey(X11Surface &surface, const xcb_key_press_event_t &key)
{
    m_focus.keyIsHandled(key.detail);
    surface.keyPressed(m_keymap.keyEvent(key));
    m_focus.noKeyIsHandled();
}

void X11Desktop::selectionChanged(const xcb_xfixes_selection_notify_event_t &event)
{
    m_compositor.ownerChanged(event);
    m_embeddingTray.ownerChanged(event);
}

void X11Desktop::notifyCompositingChanged()
{
    m_surfaces.compositingChanged();
    Q_EMIT compositingChanged();
}

} // namespace zeigewerk::platform::x11
