#pragma once

#include <QSizeF>

#include <functional>

class QColor;
class QPainter;
class QPointF;

namespace zeigewerk {

/// A picture of which only the shape counts: whoever paints it chooses the colour.
class TemplateImage
{
public:
    /// Paints the shape in opaque colour: points, origin at the top left of `size`, y down. Called afresh for
    /// each painting, at the scale of the painter.
    using Draw = std::function<void(QPainter &)>;

    TemplateImage(QSizeF size, Draw draw);

    /// In points.
    QSizeF size() const { return m_size; }
    /// Paints the shape in that colour, its alpha included, with the upper left corner at `topLeft` moved to
    /// the nearest whole pixel, so that a straight edge on the image's grid stays sharp. The painter may be
    /// moved and scaled up or down, not turned or mirrored.
    void paint(QPainter &painter, QPointF topLeft, const QColor &tint) const;

private:
    QSizeF m_size;
    Draw m_draw;
};

} // namespace zeigewerk
