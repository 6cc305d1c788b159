#pragma once

#include "platform/geometry.h"
#include "platform/surface.h"

#include <QImage>
#include <QRegion>

namespace zeigewerk::platform {

/// The pixels of a surface that the damage means.
QRegion damagedRegion(const ViewGeometry &geometry, const Damage &damage);

/// Clears what is damaged in the image of a surface and has the content paint it again. Returns the pixels
/// that are new.
QRegion paintDamage(QImage &image, double scale, const Damage &damage, SurfaceContent &content);

} // namespace zeigewerk::platform
