#pragma once

#include <QFont>
#include <QPointF>
#include <QRectF>
#include <QString>

class QPainter;

namespace zeigewerk {

/// The font of all text on a canvas: the system's, bold, 22 points (device-independent pixels) high, whatever
/// the stroke width.
QFont canvasFont();

/// Draws a single line, unwrapped, in the painter's pen colour; `origin` is the lower left corner of its line
/// box in view coordinates (y up).
void drawTextLine(QPainter &painter, QPointF origin, const QString &text);

/// The area that `drawTextLine` may paint, in view coordinates, including glyphs that extend beyond the line
/// box.
QRectF textLineArea(QPointF origin, const QString &text);

} // namespace zeigewerk
