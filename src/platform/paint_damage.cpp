#include "platform/paint_damage.h"

#include <QPainter>

namespace zeigewerk::platform {

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
    if (region.isEmpty())
        return region;

    Damage toPaint;
    for (const QRect &rect : region)
        toPaint.add(geometry.toView(rect));

    QPainter painter(&image);
    painter.setClipRegion(region);
    // Replacing by nothing instead of clearing: for all else Qt hands the rows out to other threads in pieces
    // so small that waking them takes several times as long.
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(region.boundingRect(), Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setTransform(geometry.painterTransform());
    content.draw(painter, toPaint);
    return region;
}

} // namespace zeigewerk::platform
