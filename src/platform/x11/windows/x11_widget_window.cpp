#include "platform/x11/windows/x11_widget_window.h"

#include "platform/levels.h"
#include "platform/x11/input/pointer_state.h"
#include "platform/x11/properties.h"
#include "platform/x11/windows/qt_geometry.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <xcb/shape.h>

#include <array>
#include <cstdlib>

namespace zeigewerk::platform::x11 {

namespace {

/// Qt rounds fractions of a pixel, so the two may differ by one.
bool isNearly(const QRect &a, const QRect &b)
{
    const auto isNear = [](QPoint one, QPoint other) {
        return std::abs(one.x() - other.x()) <= 1 && std::abs(one.y() - other.y()) <= 1;
    };
    return isNear(a.topLeft(), b.topLeft()) && isNear(a.bottomRight(), b.bottomRight());
}

} // namespace

X11WidgetWindow::X11WidgetWindow(const WindowServices &services, WidgetRole role, QWidget &widget,
                                 const QMargins &ornament)
    : StackedWindow(services, {.level = levelOf(role), .isTextField = role == WidgetRole::TextField})
    , m_connection(services.connection)
    , m_role(role)
    , m_widget(widget)
    , m_ornament(ornament)
{
    // Not Qt::Tool: Qt raises such windows above everything when it shows them.
    m_widget.setWindowFlags(Qt::Window | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint |
                            Qt::BypassWindowManagerHint);
    m_widget.setWindowFlag(Qt::WindowDoesNotAcceptFocus, role != WidgetRole::TextField);
    m_widget.setAttribute(Qt::WA_ShowWithoutActivating);
    m_widget.setAttribute(Qt::WA_TranslucentBackground);
    // It is never the active window, but it must show tooltips.
    m_widget.setAttribute(Qt::WA_AlwaysShowToolTips);
    m_widget.installEventFilter(this);
    connect(&services.screens, &Screens::changed, this, &X11WidgetWindow::describeFrame);
    connect(&services.screens, &Screens::changed, this, &X11WidgetWindow::restorePlaceSoon);
    m_restoring.setSingleShot(true);
    m_restoring.callOnTimeout(this, &X11WidgetWindow::restorePlace);
}

X11WidgetWindow::~X11WidgetWindow()
{
    hide();
}

QRectF X11WidgetWindow::frame() const
{
    return frameOfQtRect(services().layout(), QRect(m_widget.pos(), size()).marginsRemoved(m_ornament));
}

QSize X11WidgetWindow::size() const
{
    // While a screen is being removed, Qt ignores the fixed size of the widgets on it.
    const QSize fixed = m_widget.minimumSize();
    return fixed == m_widget.maximumSize() ? fixed : m_widget.size();
}

void X11WidgetWindow::setFrameOrigin(QPointF origin)
{
    const QRectF wanted(origin, frame().size());
    m_place = qtRectOf(services().layout(), wanted).marginsAdded(m_ornament);
    m_widget.move(m_place->topLeft());
}

void X11WidgetWindow::setFrameOriginOn(const QRectF &screenFrame, QPointF origin)
{
    const ScreenLayout &layout = services().layout();
    const std::optional<Screen> screen = layout.screenAt(screenFrame.center());
    if (!screen)
        return setFrameOrigin(origin);
    const QRectF wanted(origin, QSizeF(m_widget.size()));
    const QRect whole = ScreenLayout::nativeRectOn(*screen, wanted);
    const QRect window = cutToScale(layout, *screen, whole);
    m_nativeCorner = window.topLeft();
    if (window != whole) {
        const QSizeF size = QSizeF(window.size()) / screen->scale;
        m_widget.setFixedSize(qMax(1, qFloor(size.width())), qMax(1, qFloor(size.height())));
    }
    putOnScreen(screen->name);
    // In Qt the points of a screen start at its corner in pixels.
    const QPoint home = screen->nativeFrame.topLeft();
    const QPointF points = QPointF(window.topLeft() - home) / screen->scale;
    m_widget.move(home + QPoint(qFloor(points.x()), qFloor(points.y())));
}

void X11WidgetWindow::drag(QPointF grip, QPointF)
{
    if (const auto pointer = queryPointer(m_connection, services().layout()))
        setFrameOrigin(pointer->location - grip);
}

void X11WidgetWindow::putOnScreen(const QString &name)
{
    for (QScreen *screen : QGuiApplication::screens()) {
        if (screen->name() == name)
            m_widget.setScreen(screen);
    }
}

void X11WidgetWindow::prepareToShow()
{
    adoptNativeWindow();
    placeToThePixel();
}

void X11WidgetWindow::map()
{
    m_connection.roundTrip();
    m_widget.show();
    m_connection.roundTripOfAdopted();
}

void X11WidgetWindow::unmap()
{
    // If the focus has just moved to another of our windows, it must arrive before this one is unmapped.
    // Otherwise the window beneath gets the keys in between.
    m_connection.roundTrip();
    services().typedKeys.windowCloses(window(), m_widget, services().focus.key());
    m_widget.hide();
}

void X11WidgetWindow::setIgnoresMouseEvents(bool ignores)
{
    if (ignores == m_ignoresMouseEvents)
        return;
    m_ignoresMouseEvents = ignores;
    describeFrame();
    // The next click must already go to the right window.
    m_connection.roundTrip();
}

void X11WidgetWindow::makeKey()
{
    // The window is mapped: showing it has waited for the server.
    if (!isShown() || m_role != WidgetRole::TextField)
        return;
    services().typedKeys.keyboardComes(window());
    services().focus.give(window());
    // The keys that went to a canvas must be read before those that go to the widget.
    m_connection.roundTrip();
}

bool X11WidgetWindow::isKey() const
{
    return window() != XCB_NONE && services().focus.key() == window();
}

void X11WidgetWindow::adoptNativeWindow()
{
    const auto native = static_cast<xcb_window_t>(m_widget.winId());
    if (native != window()) {
        setWindows({native});
        connect(m_widget.windowHandle(), &QWindow::screenChanged, this, &X11WidgetWindow::describeFrame,
                Qt::UniqueConnection);
        connect(m_widget.windowHandle(), &QWindow::screenChanged, this, &X11WidgetWindow::restorePlaceSoon,
                Qt::UniqueConnection);
        m_connection.roundTripOfAdopted();
        refuseShadow(m_connection, window());
        if (m_role == WidgetRole::TextField) {
            // Other programs may take the focus from it.
            constexpr std::uint32_t kFocusChange = XCB_EVENT_MASK_FOCUS_CHANGE;
            xcb_change_window_attributes(m_connection.xcb(), window(), XCB_CW_EVENT_MASK, &kFocusChange);
        }
    }
    describeFrame();
}

void X11WidgetWindow::placeToThePixel()
{
    if (!m_nativeCorner)
        return;
    // Wait for Qt's own request, which would undo this one.
    m_connection.roundTripOfAdopted();
    const std::array values = {static_cast<std::uint32_t>(m_nativeCorner->x()),
                               static_cast<std::uint32_t>(m_nativeCorner->y())};
    xcb_configure_window(m_connection.xcb(), window(), XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y,
                         values.data());
    m_connection.flush();
}

void X11WidgetWindow::restorePlaceSoon()
{
    if (m_place && !m_restoring.isActive())
        m_restoring.start(0);
}

void X11WidgetWindow::restorePlace()
{
    const QScreen *screen = m_place ? QGuiApplication::screenAt(m_place->center()) : nullptr;
    if (!isShown() || !screen)
        return;
    const double scale = screen->devicePixelRatio();
    const QPoint corner = screen->geometry().topLeft();
    const QRect wanted(corner + ((QPointF(m_place->topLeft() - corner)) * scale).toPoint(),
                       (QSizeF(size()) * scale).toSize());
    m_connection.roundTripOfAdopted();
    const auto cookie = xcb_get_geometry(m_connection.xcb(), window());
    const auto now = owned(xcb_get_geometry_reply(m_connection.xcb(), cookie, nullptr));
    if (!now || isNearly(QRect(now->x, now->y, now->width, now->height), wanted))
        return;
    const std::array values = {static_cast<std::uint32_t>(wanted.x()), static_cast<std::uint32_t>(wanted.y()),
                               static_cast<std::uint32_t>(wanted.width()),
                               static_cast<std::uint32_t>(wanted.height())};
    xcb_configure_window(m_connection.xcb(), window(),
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                             XCB_CONFIG_WINDOW_HEIGHT,
                         values.data());
    m_connection.flush();
}

void X11WidgetWindow::describeFrame()
{
    if (window() == XCB_NONE)
        return;
    // Qt does not rescale the mask when the scale changes.
    if (!m_widget.mask().isEmpty())
        m_widget.windowHandle()->setMask(m_widget.mask());
    const double scale = m_widget.windowHandle()->devicePixelRatio();
    const QRect frame = m_widget.rect().marginsRemoved(m_ornament);
    const QRect native((QPointF(frame.topLeft()) * scale).toPoint(), frame.size() * scale);
    // Qt puts the widget's mask into the bounding shape, and the server intersects the two. Without any
    // rectangle the pointer passes through.
    const xcb_rectangle_t takesPointer = {
        static_cast<std::int16_t>(native.x()), static_cast<std::int16_t>(native.y()),
        static_cast<std::uint16_t>(native.width()), static_cast<std::uint16_t>(native.height())};
    xcb_shape_rectangles(m_connection.xcb(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED,
                         window(), 0, 0, m_ignoresMouseEvents ? 0 : 1, &takesPointer);
    if (m_role == WidgetRole::Toolbar)
        askForBlur(native);
}

void X11WidgetWindow::askForBlur(const QRect &native)
{
    setNumbers(m_connection, window(), "_KDE_NET_WM_BLUR_BEHIND_REGION", XCB_ATOM_CARDINAL,
               {static_cast<std::uint32_t>(native.x()), static_cast<std::uint32_t>(native.y()),
                static_cast<std::uint32_t>(native.width()), static_cast<std::uint32_t>(native.height())});
}

bool X11WidgetWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize) {
        describeFrame();
        if (m_widget.size() != size())
            restorePlaceSoon();
    }
    return QObject::eventFilter(watched, event);
}

} // namespace zeigewerk::platform::x11
