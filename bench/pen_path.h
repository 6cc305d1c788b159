// The path of the pen, and the places of many shapes, for all benchmarks.
#pragma once

#include <QPointF>
#include <QSizeF>

#include <cmath>

namespace zeigewerk::bench {

/// The position of a pen that moves all over a screen, back and forth, in steps of about three points, as
/// when drawn by hand. The stroke crosses itself often.
inline QPointF penPosition(QSizeF screen, int sample)
{
    const double distance = 3.0 * sample;
    return {screen.width() * (0.5 + 0.45 * std::sin(distance / 1100.0)) + 40.0 * std::sin(distance / 60.0),
            screen.height() * (0.5 + 0.45 * std::sin(distance / 1700.0)) + 40.0 * std::cos(distance / 60.0)};
}

/// The start of a shape when shapes are spread evenly over a screen, away from its edges and each far from
/// the one before.
inline QPointF scattered(QSizeF screen, int shape)
{
    // These steps give an even spread in two dimensions (the R2 sequence).
    const auto within = [shape](double step) { return 0.05 + 0.9 * std::fmod(shape * step, 1.0); };
    return {screen.width() * within(0.7548776662), screen.height() * within(0.5698402910)};
}

} // namespace zeigewerk::bench
