#include "platform/x11/x11_widget_window.h"

#include "platform/x11/x11_desktop.h"

namespace zeigewerk::platform::x11 {

X11WidgetWindow::X11WidgetWindow(X11Desktop &desktop, WidgetRole role, QWidget &widget,
                                 const QMargins &ornament)
    : m_desktop(desktop)
    , m_role(role)
    , m_widget(widget)
    , m_ornament(ornament)
{
    m_widget.setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint |
                            Qt::BypassWindowManagerHint | Qt::WindowDoesNotAcceptFocus);
    m_widget.setAttribute(Qt::WA_ShowWithoutActivating);
    m_widget.setAttribute(Qt::WA_TranslucentBackground);
    // It is never the active window, and shows its tooltips all the same.
    m_widget.setAttribute(Qt::WA_AlwaysShowToolTips);
}

X11WidgetWindow::~X11WidgetWindow()
{
    m_widget.hide();
}

QRectF X11WidgetWindow::frame() const
{
    return m_desktop.layout().frameOfQtRect(m_widget.geometry().marginsRemoved(m_ornament));
}

void X11WidgetWindow::setFrameOrigin(QPointF origin)
{
    const QRectF wanted(origin, frame().size());
    m_widget.move(m_desktop.layout().qtRect(wanted).marginsAdded(m_ornament).topLeft());
}

void X11WidgetWindow::orderFrontRegardless()
{
    m_visible = true;
    m_widget.show();
}

void X11WidgetWindow::orderOut()
{
    m_visible = false;
    m_widget.hide();
}

} // namespace zeigewerk::platform::x11
