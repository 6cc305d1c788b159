// The way of a pen, for everything that is measured on a stroke.
#pragma once

#include <QPointF>
#include <QSizeF>

#include <cmath>

namespace zeigewerk::bench {

/// Where a pen is that wanders all over a screen, back and forth, in steps of about three points as a hand
/// makes them. Its stroke crosses itself often.
inline QPointF wander(QSizeF screen, int sample)
{
    const double way = 3.0 * sample;
    return {screen.width() * (0.5 + 0.45 * std::sin(way / 1100.0)) + 40.0 * std::sin(way / 60.0),
            screen.height() * (0.5 + 0.45 * std::sin(way / 1700.0)) + 40.0 * std::cos(way / 60.0)};
}

} // namespace zeigewerk::bench
