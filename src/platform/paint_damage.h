#pragma once

#include "platform/geometry.h"
#include "platform/surface.h"

#include <QImage>
#include <QRegion>

namespace zeigewerk::platform {

/// The pixels of a surface that the damage means.
QRegion damagedRegion(const ViewGeometry &geometry, const Damage &damage);

/// Has the content paint what is damaged again, part by part, each in memory of its own: the image itself,
/// which another process may be reading, only ever changes from the old pixels to the new. Returns the pixels
/// that were painted.
QRegion paintDamage(QImage &image, double scale, const Damage &damage, SurfaceContent &content);

} // namespace zeigewerk::platform
