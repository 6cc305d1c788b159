#pragma once

#include "drawing/shape.h"
#include "platform/damage.h"
#include "random_input.h"

#include <QSizeF>

#include <vector>

namespace zeigewerk::test {

/// Random shapes, with random points, scales and damage.
class RandomShapes : public RandomInput
{
public:
    using RandomInput::RandomInput;

    /// A point in or a little outside a view of that size; often with whole coordinates, as devices report
    /// them.
    QPointF point(QSizeF view);
    double scale();
    /// A shape of any tool. Freehand strokes may have dense, distant and repeated points, sharp turns and
    /// loops.
    Shape shape(QSizeF view);
    /// One to three small rectangles.
    platform::Damage damage(QSizeF view);

private:
    std::vector<QPointF> stroke(QSizeF view);
};

} // namespace zeigewerk::test
