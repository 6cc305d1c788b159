// Places and rectangles as the monkey logs them.
#pragma once

#include <QPoint>
#include <QRect>
#include <QString>

namespace zeigewerk::rig {

inline QString textOf(QPoint place)
{
    return QStringLiteral("%1,%2").arg(place.x()).arg(place.y());
}

/// In the geometry syntax of X programs.
inline QString textOf(const QRect &rect)
{
    return QStringLiteral("%1x%2+%3+%4").arg(rect.width()).arg(rect.height()).arg(rect.x()).arg(rect.y());
}

} // namespace zeigewerk::rig
