#include "pixels/random_shapes.h"

#include <array>
#include <cmath>
#include <numbers>

namespace zeigewerk::test {

QPointF RandomShapes::point(QSizeF view)
{
    const QPointF point(real(-0.2, 1.2) * view.width(), real(-0.2, 1.2) * view.height());
    return chance(0.4) ? QPointF(point.toPoint()) : point;
}

double RandomShapes::scale()
{
    return oneOf(std::array{1.0, 1.25, 1.5, 2.0});
}

Shape RandomShapes::shape(QSizeF view)
{
    Shape shape;
    shape.tool = oneOf(Tool::allCases);
    shape.color = oneOf(kPalette);
    shape.width = oneOf(std::array{3.0, 5.0, 9.0});
    shape.start = point(view);
    shape.end = chance(0.1) ? shape.start : point(view);
    if (chance(0.1))
        shape.end.setX(shape.start.x());
    if (shape.tool == Tool::pen || shape.tool == Tool::highlighter)
        shape.points = stroke(view);
    if (shape.tool == Tool::text)
        shape.text = oneOf(std::array{QStringLiteral("Jagd"), QStringLiteral("f"), QStringLiteral(" "),
                                      QStringLiteral("Übergröße, jäh!"), QStringLiteral("➜ 漢字 ぁ")});
    return shape;
}

std::vector<QPointF> RandomShapes::stroke(QSizeF view)
{
    const int count = chance(0.2) ? integer(1, 3) : integer(4, 150);
    const double step = std::exp(real(std::log(0.05), std::log(120.0)));
    const double maxTurn = oneOf(std::array{0.1, 0.5, std::numbers::pi});
    const bool isWhole = chance(0.3);
    std::vector<QPointF> points = {point(view)};
    double direction = real(-std::numbers::pi, std::numbers::pi);
    while (static_cast<int>(points.size()) < count) {
        direction += chance(0.05) ? std::numbers::pi : real(-maxTurn, maxTurn);
        const double length = step * real(0.2, 1.8);
        QPointF next = points.back() + length * QPointF(std::cos(direction), std::sin(direction));
        // Now and then the pen rests, returns to an earlier point, or jumps.
        if (chance(0.05))
            next = chance(0.5) ? points.back() : oneOf(points);
        if (chance(0.03))
            next = point(view);
        points.push_back(isWhole ? QPointF(next.toPoint()) : next);
    }
    if (chance(0.15))
        points.push_back(points.front());
    return points;
}

platform::Damage RandomShapes::damage(QSizeF view)
{
    platform::Damage damage;
    for (int i = integer(1, 3); i > 0; --i)
        damage.add(QRectF(point(view), QSizeF(real(0.0, 60.0), real(0.0, 60.0))));
    return damage;
}

} // namespace zeigewerk::test
