#pragma once

#include <QFont>
#include <QPointF>
#include <QRectF>
#include <QString>

class QPainter;

namespace zeigewerk {

/// The one font of text on a canvas: the system's, bold, 22 points (device-independent pixels) high whatever
/// stroke width is chosen.
QFont canvasFont();

/// Draws a single line, unwrapped, in the painter's pen colour; `origin` is the lower left corner of its line
/// box in view coordinates (y up).
void drawTextLine(QPainter &painter, QPointF origin, const QString &text);

/// What `drawTextLine` may paint, glyphs that hang out of the line box included.
QRectF textLineArea(QPointF origin, const QString &text);

} // namespace zeigewerk
