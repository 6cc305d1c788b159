#include "platform/paint_damage.h"

#include "platform/paint_target.h"

#include <algorithm>

namespace zeigewerk::platform {

namespace {

template <typename Visit>
void forEachPart(const QRegion &region, const Visit &visit)
{
    constexpr int kSide = PaintTarget::kMaxSide;
    for (const QRect &rect : region) {
        for (int y = rect.top(); y <= rect.bottom(); y += kSide) {
            for (int x = rect.left(); x <= rect.right(); x += kSide)
                visit(QRect(x, y, kSide, kSide) & rect);
        }
    }
}

} // namespace

QRegion damagedRegion(const ViewGeometry &geometry, const Damage &damage)
{
    if (damage.isEverything())
        return QRect(QPoint(0, 0), geometry.pixels());
    QRegion region;
    for (const QRectF &rect : damage.rects())
        region += geometry.damagedPixels(rect);
    return region;
}

QRegion paintDamage(QImage &image, double scale, const Damage &damage, SurfaceContent &content)
{
    const ViewGeometry geometry(image.size(), scale);
    QRegion region = damagedRegion(geometry, damage);
    PaintTarget target(geometry);
    forEachPart(region, [&](const QRect &part) {
        target.select(part);
        content.draw(target);
        target.copyTo(image);
    });
    return region;
}

} // namespace zeigewerk::platform
