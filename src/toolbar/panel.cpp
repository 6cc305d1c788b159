#include "toolbar/panel.h"

#include "drawing/qt_color.h"
#include "toolbar/bar.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

namespace zeigewerk {

namespace {

constexpr int kShadowReach = 16;
constexpr double kShadowDrop = 4.0;
constexpr double kShadowAlpha = 0.22;
constexpr double kEdgeWidth = 1.0;
constexpr QSize kSeparatorSize(84, 1);

} // namespace

Panel::Panel()
{
    setWindowTitle(QStringLiteral("Zeigewerk"));
}

void Panel::setLook(const ToolbarLook &look)
{
    if (&look == m_look)
        return;
    m_look = &look;
    for (Bar *separator : m_separators)
        separator->setColor(look.separator);
    update();
}

Bar *Panel::makeSeparator()
{
    m_separators.push_back(new Bar(this, kSeparatorSize, 0.0));
    m_separators.back()->setColor(m_look->separator);
    return m_separators.back();
}

void Panel::setComposited(bool isComposited)
{
    if (isComposited == m_isComposited)
        return;
    m_isComposited = isComposited;
    cutOut();
    update();
}

void Panel::cutOut()
{
    if (m_isComposited) {
        clearMask();
        return;
    }
    QPainterPath outline;
    outline.addRoundedRect(frameRect(), kCornerRadius, kCornerRadius);
    setMask(QRegion(outline.toFillPolygon().toPolygon()));
}

void Panel::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    cutOut();
}

void Panel::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_isComposited && !frameRect().contains(event->rect()))
        paintShadow(painter);
    paintBackdrop(painter);
}

void Panel::paintShadow(QPainter &painter) const
{
    // Rings that fade with the square of their distance look like a blur, and cost very little.
    const QRectF dropped = QRectF(frameRect()).translated(0, kShadowDrop);
    painter.setPen(Qt::NoPen);
    painter.setBrush(toQColor(kBlack.withAlpha(kShadowAlpha)));
    painter.drawRoundedRect(dropped, kCornerRadius, kCornerRadius);
    painter.setBrush(Qt::NoBrush);
    for (int ring = 0; ring < kShadowReach; ++ring) {
        const double nearness = 1.0 - static_cast<double>(ring) / kShadowReach;
        const double middle = ring + 0.5;
        painter.setPen(QPen(toQColor(kBlack.withAlpha(kShadowAlpha * nearness * nearness)), 1.0));
        painter.drawRoundedRect(dropped.adjusted(-middle, -middle, middle, middle), kCornerRadius + middle,
                                kCornerRadius + middle);
    }
}

void Panel::paintBackdrop(QPainter &painter) const
{
    const Color color = m_isComposited ? m_look->backdrop : m_look->backdrop.withAlpha(1.0);
    QPainterPath outline;
    outline.addRoundedRect(frameRect(), kCornerRadius, kCornerRadius);
    // The shadow extends beneath the panel, and must not darken it.
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.fillPath(outline, Qt::black);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.fillPath(outline, toQColor(color));
    const double inset = kEdgeWidth / 2;
    painter.setPen(QPen(toQColor(m_look->edge), kEdgeWidth));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(frameRect()).adjusted(inset, inset, -inset, -inset), kCornerRadius - inset,
                            kCornerRadius - inset);
}

void Panel::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_isDragged = true;
    Q_EMIT dragBegan(inFrame(event->position()));
}

QPointF Panel::inFrame(QPointF position) const
{
    // From the event, since the pointer may have moved on by now. The position is a pixel, and the pointer is
    // at its centre.
    const QPointF middle = position + QPointF(0.5, 0.5) / devicePixelRatio();
    const QRectF frame = frameRect();
    return {middle.x() - frame.left(), frame.bottom() - middle.y()};
}

void Panel::mouseMoveEvent(QMouseEvent *event)
{
    if (m_isDragged)
        Q_EMIT dragMoved(inFrame(event->position()));
}

void Panel::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        endDrag();
}

void Panel::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    // If a hot key hides the panel during a drag, it never gets the release.
    endDrag();
}

void Panel::endDrag()
{
    if (!m_isDragged)
        return;
    m_isDragged = false;
    Q_EMIT dragEnded();
}

void Panel::contextMenuEvent(QContextMenuEvent *event)
{
    event->accept();
    Q_EMIT menuRequested();
}

} // namespace zeigewerk
