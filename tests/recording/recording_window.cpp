#include "recording/recording_desktop.h"

#include <QWidget>

#include <cmath>
#include <utility>

namespace zeigewerk::platform {

RecordingWindow::RecordingWindow(RecordingDesktop &desktop, QString name, WidgetRole role, QWidget &widget,
                                 const QMargins &ornament)
    : m_desktop(desktop)
    , m_name(std::move(name))
    , m_role(role)
    , m_widget(widget)
    , m_ornament(ornament)
{
    m_widget.setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus);
    // Clicks and pictures work without a window on a screen.
    m_widget.setAttribute(Qt::WA_DontShowOnScreen);
    m_desktop.m_windows.push_back(this);
}

RecordingWindow::~RecordingWindow()
{
    std::erase(m_desktop.m_windows, this);
    m_desktop.forgetKey(m_name);
    m_widget.hide();
}

QRectF RecordingWindow::frame() const
{
    return {m_origin, QSizeF(m_widget.size().shrunkBy(m_ornament))};
}

void RecordingWindow::setFrameOrigin(QPointF origin)
{
    // Rounded to Qt's whole coordinates, as on a real desktop. They grow downwards, and so a half is rounded
    // down.
    m_origin = QPointF(std::floor(origin.x() + 0.5), std::ceil(origin.y() - 0.5));
}

void RecordingWindow::setFrameOriginOn(const QRectF &, QPointF origin)
{
    setFrameOrigin(origin);
}

void RecordingWindow::drag(QPointF grip, QPointF position)
{
    const std::optional<QPointF> mouse = m_desktop.mouseLocation();
    setFrameOrigin(mouse ? *mouse - grip : m_origin + position - grip);
}

void RecordingWindow::orderFrontRegardless()
{
    m_desktop.note(m_name + QStringLiteral(": order front"));
    m_orderedFront = ++m_desktop.m_lastOrder;
    m_visible = true;
    m_widget.show();
}

void RecordingWindow::orderOut()
{
    m_desktop.note(m_name + QStringLiteral(": order out"));
    m_desktop.forgetKey(m_name);
    m_visible = false;
    m_widget.hide();
}

void RecordingWindow::setIgnoresMouseEvents(bool ignores)
{
    m_ignoresMouseEvents = ignores;
    m_desktop.note(m_name +
                   (ignores ? QStringLiteral(": ignore the mouse") : QStringLiteral(": take the mouse")));
}

void RecordingWindow::makeKey()
{
    m_desktop.note(m_name + QStringLiteral(": make key"));
    if (m_visible && m_role == WidgetRole::TextField)
        m_desktop.m_keyWindow = m_name;
}

bool RecordingWindow::isKey() const
{
    return m_desktop.m_keyWindow == m_name;
}

} // namespace zeigewerk::platform
