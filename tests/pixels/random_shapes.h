#pragma once

#include "drawing/shape.h"
#include "platform/damage.h"

#include <QSizeF>

#include <random>

namespace zeigewerk::test {

/// Random input for property tests. The seed is printed; the environment variable ZEIGEWERK_TEST_SEED sets
/// it, so that a failure can be seen again.
class RandomShapes
{
public:
    RandomShapes();
    explicit RandomShapes(std::uint64_t seed);

    std::uint64_t seed() const { return m_seed; }

    bool chance(double probability);
    int integer(int low, int high);
    double real(double low, double high);
    template <typename Container>
    auto oneOf(const Container &values)
    {
        return values[static_cast<std::size_t>(integer(0, static_cast<int>(std::size(values)) - 1))];
    }

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

    std::uint64_t m_seed;
    std::mt19937_64 m_engine;
};

} // namespace zeigewerk::test
