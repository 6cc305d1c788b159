#pragma once

#include "drawing/tool.h"

#include <QPointF>

namespace zeigewerk {

/// Where a drag from `start` to `point` ends while Shift is held: a square or circle that grows towards the
/// pointer's quadrant for the box tools; for the others the direction snapped to the nearest multiple of 45
/// degrees with the length of the drag kept.
QPointF constrained(Tool tool, QPointF start, QPointF point);

} // namespace zeigewerk
