#pragma once

#include "drawing/shape.h"
#include "platform/damage.h"

#include <QPainterPath>

namespace zeigewerk {

/// The polyline through the points, to be stroked with round caps and joins. Points that cannot be drawn are
/// left out. A line without length has no stroke, so a single point becomes a very short dash: its round
/// caps are the dot.
QPainterPath freehandPath(const std::vector<QPointF> &points);

/// The parts of that polyline whose stroke of that half width can touch the damage, each a subpath. Stroked
/// in one call they give the same pixels inside the damage as the whole.
QPainterPath freehandPath(const std::vector<QPointF> &points, double halfWidth,
                          const platform::Damage &damage);

/// The shortest dash that is drawn in place of a point.
QPainterPath dotPath(QPointF point);

} // namespace zeigewerk
