#pragma once

#include "drawing/shape.h"
#include "platform/damage.h"
#include "random_input.h"

#include <QSizeF>

#include <vector>

namespace zeigewerk::test {

/// Random shapes, and what goes with them.
class RandomShapes : public RandomInput
{
public:
    using RandomInput::RandomInput;

    /// A point in or a little outside of a view of that size; often with whole coordinates, as devices
    /// deliver them.
    QPointF point(QSizeF view);
    double scale();
    /// A shape of any tool, with points dense and far apart, doubled, turning sharply, coming back.
    Shape shape(QSizeF view);
    /// One to three rectangles, mostly small ones.
    platform::Damage damage(QSizeF view);

private:
    std::vector<QPointF> stroke(QSizeF view);
};

} // namespace zeigewerk::test
