// The way of a pen, and where many shapes lie, for everything that is measured.
#pragma once

#include <QPointF>
#include <QSizeF>

#include <cmath>

namespace zeigewerk::bench {

/// Where a pen is that wanders all over a screen, back and forth, in steps of about three points as a hand
/// makes them. Its stroke crosses itself often.
inline QPointF penPosition(QSizeF screen, int sample)
{
    const double distance = 3.0 * sample;
    return {screen.width() * (0.5 + 0.45 * std::sin(distance / 1100.0)) + 40.0 * std::sin(distance / 60.0),
            screen.height() * (0.5 + 0.45 * std::sin(distance / 1700.0)) + 40.0 * std::cos(distance / 60.0)};
}

/// Where a shape begins if they are strewn evenly over a screen save its edges, each far from the one before.
inline QPointF scattered(QSizeF screen, int shape)
{
    // Steps of this make the most even spread in two dimensions.
    const auto within = [shape](double step) { return 0.05 + 0.9 * std::fmod(shape * step, 1.0); };
    return {screen.width() * within(0.7548776662), screen.height() * within(0.5698402910)};
}

} // namespace zeigewerk::bench
