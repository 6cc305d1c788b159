#include "pixels/picture.h"

#include "platform/paint_damage.h"

#include <QtMath>

#include <utility>

namespace zeigewerk::test {

using platform::Damage;

namespace {

class FunctionContent : public platform::SurfaceContent
{
public:
    explicit FunctionContent(const Picture::Paint &paint)
        : m_paint(paint)
    {
    }

    void draw(platform::PaintTarget &target) override { m_paint(target); }

private:
    const Picture::Paint &m_paint;
};

QString describe(QRgb actual, QRgb expected, int x, int y)
{
    return QStringLiteral("pixel (%1, %2) is %3, not %4")
        .arg(x)
        .arg(y)
        .arg(actual, 8, 16, QLatin1Char('0'))
        .arg(expected, 8, 16, QLatin1Char('0'));
}

} // namespace

Picture::Picture(QSize pixels, double scale)
    : m_geometry(pixels, scale)
    , m_image(pixels, QImage::Format_ARGB32_Premultiplied)
{
    m_image.fill(Qt::transparent);
}

QColor Picture::at(QPointF viewPoint) const
{
    return colorAt(m_image, m_geometry.scale(), viewPoint);
}

QRegion Picture::damagedPixels(const Damage &damage) const
{
    return platform::damagedRegion(m_geometry, damage);
}

QRegion Picture::repaint(const Damage &damage, const Paint &paint)
{
    FunctionContent content(paint);
    return platform::paintDamage(m_image, m_geometry.scale(), damage, content);
}

QColor colorAt(const QImage &image, double scale, QPointF viewPoint)
{
    const QPointF pixel = platform::ViewGeometry(image.size(), scale).toPixels(viewPoint);
    return image.pixelColor(qFloor(pixel.x()), qFloor(pixel.y()));
}

bool isBlank(const QImage &image)
{
    QImage blank(image.size(), image.format());
    blank.fill(Qt::transparent);
    return image == blank;
}

QString firstDifference(const QImage &actual, const QImage &expected, const QRegion &region)
{
    for (const QRect &rect : region) {
        for (int y = rect.top(); y <= rect.bottom(); ++y) {
            const auto *actualLine = reinterpret_cast<const QRgb *>(actual.constScanLine(y));
            const auto *expectedLine = reinterpret_cast<const QRgb *>(expected.constScanLine(y));
            for (int x = rect.left(); x <= rect.right(); ++x) {
                if (actualLine[x] != expectedLine[x])
                    return describe(actualLine[x], expectedLine[x], x, y);
            }
        }
    }
    return {};
}

QString firstDifference(const QImage &actual, const QImage &expected)
{
    if (actual.size() != expected.size())
        return QStringLiteral("the pictures have different sizes");
    return firstDifference(actual, expected, QRegion(actual.rect()));
}

QString firstDifferenceOutside(const QImage &before, const QImage &after, const QRegion &region)
{
    return firstDifference(after, before, QRegion(before.rect()) - region);
}

} // namespace zeigewerk::test
