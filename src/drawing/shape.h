#pragma once

#include "base/clock.h"
#include "drawing/color.h"
#include "drawing/polyline.h"
#include "drawing/tool.h"

#include <QPointF>
#include <QString>

namespace zeigewerk {

/// One mark on one screen's canvas, finished or in progress. Geometry is in view coordinates: points, origin
/// at the bottom left, y upwards.
struct Shape
{
    Tool tool = Tool::pen;
    /// The sampled path of the freehand tools; the other tools are drawn from `start` and `end` alone.
    Polyline points;
    QPointF start;
    QPointF end;
    Color color;
    /// The stroke width in points, as chosen when the shape was begun.
    double width = 0.0;
    /// The typed text of a text shape, else empty.
    QString text;
    /// When the mark was finished; auto-fade counts from here.
    TimePoint created = WallClock::now();

    friend bool operator==(const Shape &, const Shape &) = default;
};

} // namespace zeigewerk
