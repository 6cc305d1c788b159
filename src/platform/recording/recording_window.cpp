#include "platform/recording/recording_desktop.h"

#include <QWidget>

#include <utility>

namespace zeigewerk::platform {

RecordingWindow::RecordingWindow(RecordingDesktop &desktop, QString name, QWidget &widget,
                                 const QMargins &ornament)
    : m_desktop(desktop)
    , m_name(std::move(name))
    , m_widget(widget)
    , m_ornament(ornament)
{
    m_widget.setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus);
    // Clicks and pictures need no window on any screen.
    m_widget.setAttribute(Qt::WA_DontShowOnScreen);
}

RecordingWindow::~RecordingWindow()
{
    m_widget.hide();
}

QRectF RecordingWindow::frame() const
{
    return {m_origin, QSizeF(m_widget.size().shrunkBy(m_ornament))};
}

void RecordingWindow::setFrameOrigin(QPointF origin)
{
    // Through Qt's whole numbers and back, as on a real desktop.
    const ScreenLayout &layout = m_desktop.m_layout;
    m_origin = layout.frameOfQtRect(layout.qtRect({origin, frame().size()})).topLeft();
}

void RecordingWindow::orderFrontRegardless()
{
    m_desktop.note(m_name + QStringLiteral(": order front"));
    m_visible = true;
    m_widget.show();
}

void RecordingWindow::orderOut()
{
    m_desktop.note(m_name + QStringLiteral(": order out"));
    m_visible = false;
    m_widget.hide();
}

} // namespace zeigewerk::platform
