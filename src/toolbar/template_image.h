#pragma once

#include <QSizeF>

#include <functional>

class QColor;
class QPainter;
class QPointF;

namespace zeigewerk {

/// An image of which only the shape matters; the colour is chosen when it is painted.
class TemplateImage
{
public:
    /// Paints the shape in opaque colour: points, origin at the top left of `size`, y down. Called for each
    /// painting, at the scale of the painter.
    using Draw = std::function<void(QPainter &)>;

    TemplateImage(QSizeF size, Draw draw);

    /// In points.
    QSizeF size() const { return m_size; }
    /// Paints the shape in that colour, including its alpha. The upper left corner is `topLeft`, moved to the
    /// nearest whole pixel so that straight edges on the image's grid stay sharp. The painter may be
    /// translated and scaled, but not rotated or mirrored.
    void paint(QPainter &painter, QPointF topLeft, const QColor &tint) const;

private:
    QSizeF m_size;
    Draw m_draw;
};

} // namespace zeigewerk
