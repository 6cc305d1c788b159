#include "pixels/picture.h"

#include <QtMath>

#include <cstring>

namespace zeigewerk::test {

using platform::Damage;

Picture::Picture(QSize pixels, double scale)
    : m_image(pixels, QImage::Format_ARGB32_Premultiplied)
    , m_viewToPixels(scale, 0, 0, -scale, 0, pixels.height())
{
    m_image.fill(Qt::transparent);
}

QColor Picture::at(QPointF viewPoint) const
{
    const QPointF pixel = m_viewToPixels.map(viewPoint);
    return m_image.pixelColor(qFloor(pixel.x()), qFloor(pixel.y()));
}

QRegion Picture::damagedPixels(const Damage &damage) const
{
    if (damage.isEverything())
        return QRegion(m_image.rect());
    QRegion pixels;
    for (const QRectF &rect : damage.rects())
        pixels += m_viewToPixels.mapRect(rect).toAlignedRect().adjusted(-1, -1, 1, 1);
    return pixels & m_image.rect();
}

Damage Picture::damageOf(const QRegion &pixels) const
{
    Damage damage;
    const QTransform pixelsToView = m_viewToPixels.inverted();
    for (const QRect &rect : pixels)
        damage.add(pixelsToView.mapRect(QRectF(rect)));
    return damage;
}

namespace {

QString describe(const QImage &actual, const QImage &expected, int x, int y)
{
    return QStringLiteral("pixel (%1, %2) is %3, not %4")
        .arg(x)
        .arg(y)
        .arg(actual.pixel(x, y), 8, 16, QLatin1Char('0'))
        .arg(expected.pixel(x, y), 8, 16, QLatin1Char('0'));
}

} // namespace

QString firstDifference(const QImage &actual, const QImage &expected, const QRegion &region)
{
    for (const QRect &rect : region) {
        for (int y = rect.top(); y <= rect.bottom(); ++y) {
            const auto *actualLine = reinterpret_cast<const QRgb *>(actual.constScanLine(y));
            const auto *expectedLine = reinterpret_cast<const QRgb *>(expected.constScanLine(y));
            for (int x = rect.left(); x <= rect.right(); ++x) {
                if (actualLine[x] != expectedLine[x])
                    return describe(actual, expected, x, y);
            }
        }
    }
    return {};
}

QString firstDifferenceOutside(const QImage &before, const QImage &after, const QRegion &region)
{
    return firstDifference(after, before, QRegion(before.rect()) - region);
}

} // namespace zeigewerk::test
