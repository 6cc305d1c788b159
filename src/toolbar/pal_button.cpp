#include "toolbar/pal_button.h"

#include "drawing/qt_color.h"
#include "toolbar/pal_button_accessible.h"

#include <QAccessible>
#include <QPainter>

#include <cmath>

namespace zeigewerk {

namespace {

constexpr double kDisabledOpacity = 0.35;

/// The largest rectangle within `rect` whose edges lie on pixel boundaries. At fractional scales a button's
/// edges lie inside pixels, and would cut a circle flat.
QRectF wholePixels(const QPainter &painter, const QRectF &rect)
{
    constexpr double kNoise = 1e-3;
    const QTransform toPixels = painter.deviceTransform();
    const QRectF pixels = toPixels.mapRect(rect);
    const QPointF from(std::ceil(pixels.left() - kNoise), std::ceil(pixels.top() - kNoise));
    const QPointF to(std::floor(pixels.right() + kNoise), std::floor(pixels.bottom() + kNoise));
    return toPixels.inverted().mapRect(QRectF(from, to));
}

} // namespace

PalButton::PalButton(QWidget *parent, QSize size, const QString &tip)
    : QAbstractButton(parent)
    , m_tip(tip)
{
    PalButtonAccessible::install();
    setFixedSize(size);
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_Hover);
    // The menu belongs to the background: a right click on a button opens none.
    setContextMenuPolicy(Qt::PreventContextMenu);
    setToolTip(tip);
    setAccessibleName(tip);
}

void PalButton::setImage(const TemplateImage &image)
{
    m_image = image;
    update();
}

void PalButton::setContentTint(const Color &tint)
{
    if (tint == m_contentTint)
        return;
    m_contentTint = tint;
    update();
}

void PalButton::setBackground(const Color &color)
{
    Layer layer = m_layer;
    layer.background = color;
    setLayer(layer);
}

void PalButton::setBorder(const Color &color, double width)
{
    Layer layer = m_layer;
    layer.borderColor = color;
    layer.borderWidth = width;
    setLayer(layer);
}

void PalButton::setCornerRadius(double radius)
{
    Layer layer = m_layer;
    layer.cornerRadius = radius;
    setLayer(layer);
}

void PalButton::setLayer(const Layer &layer)
{
    if (layer == m_layer)
        return;
    m_layer = layer;
    update();
}

void PalButton::setFeedback(const Color &hovered, const Color &pressed)
{
    m_hovered = hovered;
    m_pressed = pressed;
}

void PalButton::setTipNote(const QString &note)
{
    if (note == m_tipNote)
        return;
    m_tipNote = note;
    setToolTip(note.isEmpty() ? m_tip : m_tip + QLatin1Char('\n') + note);
}

void PalButton::setShownOn(bool on)
{
    if (on == m_isShownOn)
        return;
    m_isShownOn = on;
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
}

Color PalButton::feedback() const
{
    if (isDown())
        return m_pressed;
    return isEnabled() && underMouse() ? m_hovered : kClear;
}

void PalButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(isEnabled() ? 1.0 : kDisabledOpacity);
    paintLayer(painter);
    const QColor tint = toQColor(m_contentTint);
    if (m_image) {
        const QSizeF margin = (QSizeF(size()) - m_image->size()) / 2;
        m_image->paint(painter, {margin.width(), margin.height()}, tint);
    } else if (!text().isEmpty()) {
        painter.setPen(tint);
        painter.drawText(rect(), Qt::AlignCenter, text());
    }
}

void PalButton::paintLayer(QPainter &painter) const
{
    const QRectF bounds = wholePixels(painter, rect());
    const double radius = m_layer.cornerRadius;
    painter.setPen(Qt::NoPen);
    for (const Color &color : {m_layer.background, feedback()}) {
        painter.setBrush(toQColor(color));
        painter.drawRoundedRect(bounds, radius, radius);
    }
    if (m_layer.borderWidth > 0.0) {
        const double inset = m_layer.borderWidth / 2;
        painter.setPen(QPen(toQColor(m_layer.borderColor), m_layer.borderWidth));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(bounds.adjusted(inset, inset, -inset, -inset), radius - inset,
                                radius - inset);
    }
}

} // namespace zeigewerk
