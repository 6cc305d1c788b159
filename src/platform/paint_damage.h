#pragma once

#include "platform/geometry.h"
#include "platform/surface.h"

#include <QImage>
#include <QRegion>

namespace zeigewerk::platform {

/// The pixels of a surface that are damaged.
QRegion damagedRegion(const ViewGeometry &geometry, const Damage &damage);

/// Makes the content repaint the damage, part by part, each in separate memory: another process may be
/// reading the image, so its pixels change only from old to new. Returns the pixels that were painted.
QRegion paintDamage(QImage &image, double scale, const Damage &damage, SurfaceContent &content);

} // namespace zeigewerk::platform
