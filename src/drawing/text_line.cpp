#include "drawing/text_line.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>

namespace zeigewerk {

namespace {

constexpr int kFontSize = 22;
/// A margin around glyphs, in points: they are placed and hinted in whole pixels, and their outlines are
/// rounded outwards.
constexpr double kGlyphRounding = 2.0;

/// Whether a pasted character cannot stay on the line: line ends and most other control characters. A tab
/// can: it goes to the next tab stop. So can DEL, for which fonts have a glyph.
bool isUnwritable(QChar character)
{
    return (character < u' ' && character != u'\t') || character == QChar::LineSeparator ||
           character == QChar::ParagraphSeparator || character == QChar::ObjectReplacementCharacter;
}

/// The text as painted: a space replaces each character that has no glyph, as in the text field.
QString writtenText(QString text)
{
    if (std::any_of(text.cbegin(), text.cend(), &isUnwritable))
        std::replace_if(text.begin(), text.end(), &isUnwritable, QChar(u' '));
    return text;
}

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
    // Glyphs are upright only where y points down.
    painter.translate(origin);
    painter.scale(1.0, -1.0);
    painter.drawText(QPointF(0.0, -QFontMetricsF(font).descent()), writtenText(text));
    painter.restore();
}

QRectF textLineArea(QPointF origin, const QString &text)
{
    const QFontMetricsF metrics(canvasFont());
    // In the metrics' coordinates, y points down from the baseline.
    const QString written = writtenText(text);
    const QRectF glyphs = metrics.boundingRect(written);
    const double left = std::min(0.0, glyphs.left());
    const double right = std::max(metrics.horizontalAdvance(written), glyphs.right());
    const double top = std::min(-metrics.ascent(), glyphs.top());
    const double bottom = std::max(metrics.descent(), glyphs.bottom());
    const double baseLine = origin.y() + metrics.descent();
    return QRectF(QPointF(origin.x() + left, baseLine - bottom), QPointF(origin.x() + right, baseLine - top))
        .adjusted(-kGlyphRounding, -kGlyphRounding, kGlyphRounding, kGlyphRounding);
}

} // namespace zeigewerk
