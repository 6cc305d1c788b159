#pragma once

#include "platform/damage.h"
#include "platform/geometry.h"
#include "platform/paint_target.h"

#include <QColor>
#include <QImage>
#include <QRegion>

#include <array>
#include <functional>

namespace zeigewerk::test {

inline constexpr std::array kScales = {1.0, 1.25, 1.5, 2.0};

/// An in-memory image that is painted like a surface: in view coordinates (points, y up) at some scale, and
/// only where it is damaged.
class Picture
{
public:
    using Paint = std::function<void(platform::PaintTarget &)>;

    Picture(QSize pixels, double scale);

    const QImage &image() const { return m_image; }
    const platform::ViewGeometry &geometry() const { return m_geometry; }
    /// The colour of the pixel that contains that view point.
    QColor at(QPointF viewPoint) const;
    QRegion damagedPixels(const platform::Damage &damage) const;

    /// Returns the pixels that were painted.
    QRegion repaint(const platform::Damage &damage, const Paint &paint);
    void repaintAll(const Paint &paint) { repaint(platform::Damage::everything(), paint); }

private:
    platform::ViewGeometry m_geometry;
    QImage m_image;
};

/// The colour of the image's pixel that contains that view point.
QColor colorAt(const QImage &image, double scale, QPointF viewPoint);

/// Whether every pixel is transparent.
bool isBlank(const QImage &image);

/// Describes the first pixel of `region` in which the two images differ; empty if there is none.
QString firstDifference(const QImage &actual, const QImage &expected, const QRegion &region);
QString firstDifference(const QImage &actual, const QImage &expected);

/// Describes the first pixel outside `region` in which the two images differ; empty if there is none.
QString firstDifferenceOutside(const QImage &before, const QImage &after, const QRegion &region);

} // namespace zeigewerk::test
