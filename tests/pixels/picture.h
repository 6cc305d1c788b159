#pragma once

#include "platform/damage.h"

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QRegion>
#include <QTransform>

namespace zeigewerk::test {

/// An image in memory that is painted as a surface is: view coordinates (points, y up) at some scale, and
/// only within a damage that is turned into whole pixels.
class Picture
{
public:
    Picture(QSize pixels, double scale);

    const QImage &image() const { return m_image; }
    /// The pixel that contains that view point.
    QColor at(QPointF viewPoint) const;

    /// Every pixel that the damage may touch.
    QRegion damagedPixels(const platform::Damage &damage) const;
    /// Those pixels as view rectangles, which is what a surface has drawn.
    platform::Damage damageOf(const QRegion &pixels) const;

    /// Clears those pixels and has them painted: `paint` is given a painter in view coordinates that is
    /// clipped to them.
    template <typename Paint>
    void repaint(const QRegion &pixels, Paint paint)
    {
        if (pixels.isEmpty())
            return;
        QPainter painter(&m_image);
        painter.setClipRegion(pixels);
        painter.setCompositionMode(QPainter::CompositionMode_Clear);
        painter.fillRect(m_image.rect(), Qt::transparent);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        painter.setTransform(m_viewToPixels);
        paint(painter);
    }

    template <typename Paint>
    void repaintAll(Paint paint)
    {
        repaint(QRegion(m_image.rect()), paint);
    }

private:
    QImage m_image;
    QTransform m_viewToPixels;
};

/// The first pixel of `region` in which the two images differ, told with both values; empty when none does.
QString firstDifference(const QImage &actual, const QImage &expected, const QRegion &region);

/// The first pixel outside `region` in which the two images differ; empty when none does.
QString firstDifferenceOutside(const QImage &before, const QImage &after, const QRegion &region);

} // namespace zeigewerk::test
