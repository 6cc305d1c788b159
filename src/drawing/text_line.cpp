#include "drawing/text_line.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainter>

namespace zeigewerk {

namespace {

constexpr int kFontSize = 22;
/// Glyphs are placed and hinted in whole pixels, and their outlines are rounded outwards.
constexpr double kGlyphRounding = 2.0;

} // namespace

QFont canvasFont()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setBold(true);
    font.setPixelSize(kFontSize);
    return font;
}

void drawTextLine(QPainter &painter, QPointF origin, const QString &text)
{
    const QFont font = canvasFont();
    painter.save();
    painter.setFont(font);
    // Glyphs stand upright in a system whose y points down.
    painter.translate(origin);
    painter.scale(1.0, -1.0);
    painter.drawText(QPointF(0.0, -QFontMetricsF(font).descent()), text);
    painter.restore();
}

QRectF textLineArea(QPointF origin, const QString &text)
{
    const QFontMetricsF metrics(canvasFont());
    // In the metrics' own system y points down from the base line.
    const QRectF glyphs = metrics.boundingRect(text);
    const double left = std::min(0.0, glyphs.left());
    const double right = std::max(metrics.horizontalAdvance(text), glyphs.right());
    const double top = std::min(-metrics.ascent(), glyphs.top());
    const double bottom = std::max(metrics.descent(), glyphs.bottom());
    const double baseLine = origin.y() + metrics.descent();
    return QRectF(QPointF(origin.x() + left, baseLine - bottom), QPointF(origin.x() + right, baseLine - top))
        .adjusted(-kGlyphRounding, -kGlyphRounding, kGlyphRounding, kGlyphRounding);
}

} // namespace zeigewerk
