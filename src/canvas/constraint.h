#pragma once

#include "drawing/tool.h"

#include <QPointF>

namespace zeigewerk {

/// Where a drag from `start` to `point` ends while Shift is held. Rectangle and ellipse become a square or
/// circle in the pointer's quadrant. Freehand, line and arrow snap their direction to the nearest multiple of
/// 45 degrees and keep their length. Text is not constrained.
QPointF constrained(Tool tool, QPointF start, QPointF point);

} // namespace zeigewerk
