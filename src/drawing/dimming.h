#pragma once

#include "drawing/blend.h"

#include <QPointF>

namespace zeigewerk {

/// Lays a coat of the colour on everything but a round hole. Coordinates are pixels, as Coverage's; the
/// radius may be anything above zero, infinity included.
void coverOutside(platform::PaintTarget &target, QPointF middle, double radius, Premultiplied color);

} // namespace zeigewerk
