#include "drawing/circles.h"
#include "pixels/covered_pixels.h"
#include "registered_test.h"

#include <QTest>

#include <cmath>
#include <limits>

namespace zeigewerk::test {

namespace {

struct Circle
{
    QPointF center;
    double radius = 0.0;
    /// Half the width of its stroke; 0 makes it a hole with everything around it covered.
    double halfWidth = 0.0;
};

/// The coverage of each pixel of the rectangle (0 to 255), row by row.
std::vector<int> coverageOf(const Circle &circle, const QRect &rect = kWholeSurface)
{
    const auto paint = [&](platform::PaintTarget &target) {
        if (circle.halfWidth > 0.0)
            strokeCircle(target, circle.center, circle.radius, circle.halfWidth, kBlackInk);
        else
            coverOutside(target, circle.center, circle.radius, kBlackInk);
    };
    return coverageBy(paint, rect);
}

double expectedAt(const Circle &circle, int x, int y)
{
    const double distance = std::hypot(x + 0.5 - circle.center.x(), y + 0.5 - circle.center.y());
    const double depth = circle.halfWidth > 0.0 ? circle.halfWidth - std::abs(distance - circle.radius)
                                                : distance - circle.radius;
    return 255.0 * std::clamp(depth + 0.5, 0.0, 1.0);
}

Circle randomCircle(RandomInput &random)
{
    return {{random.real(-60.0, 180.0), random.real(-60.0, 150.0)},
            random.real(0.2, 90.0),
            random.chance(0.5) ? 0.0 : random.real(0.5, 8.0)};
}

} // namespace

class CirclesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void coverageDependsOnTheDistanceFromTheCircle();
    void aPartIsPaintedLikeThatPartOfTheWhole();
    void aHoleLargerThanTheSurfaceLeavesItClear();
    void aHoleOutsideTheSurfaceCoversAllOfIt();
};

void CirclesTest::coverageDependsOnTheDistanceFromTheCircle()
{
    RandomInput random;
    for (int i = 0; i < 300; ++i) {
        const Circle circle = randomCircle(random);
        const std::vector<int> values = coverageOf(circle);
        auto value = values.cbegin();
        for (int y = 0; y < kSurface.height(); ++y) {
            for (int x = 0; x < kSurface.width(); ++x, ++value) {
                // Circles are rounded to a grid of 1/64 pixel.
                if (std::abs(*value - expectedAt(circle, x, y)) > 1.0 + 255.0 / 64.0)
                    QFAIL(qPrintable(
                        QStringLiteral("circle at %1, %2 of radius %3, width %4: pixel %5, %6 is %7")
                            .arg(circle.center.x())
                            .arg(circle.center.y())
                            .arg(circle.radius)
                            .arg(2.0 * circle.halfWidth)
                            .arg(x)
                            .arg(y)
                            .arg(*value)));
            }
        }
    }
}

void CirclesTest::aPartIsPaintedLikeThatPartOfTheWhole()
{
    RandomInput random;
    for (int i = 0; i < 500; ++i) {
        const Circle circle = randomCircle(random);
        const std::vector<int> whole = coverageOf(circle);
        const QRect rect = randomRect(random);
        const std::vector<int> part = coverageOf(circle, rect);
        auto value = part.cbegin();
        for (int y = rect.top(); y <= rect.bottom(); ++y) {
            for (int x = rect.left(); x <= rect.right(); ++x)
                QCOMPARE(*value++, whole[static_cast<std::size_t>(y * kSurface.width() + x)]);
        }
    }
}

void CirclesTest::aHoleLargerThanTheSurfaceLeavesItClear()
{
    const std::vector<int> clear(static_cast<std::size_t>(kSurface.width() * kSurface.height()), 0);
    for (const double radius :
         {200.0, 1e9, std::numeric_limits<double>::max(), std::numeric_limits<double>::infinity()})
        QCOMPARE(coverageOf({{60, 45}, radius}), clear);
}

void CirclesTest::aHoleOutsideTheSurfaceCoversAllOfIt()
{
    const std::vector<int> covered(static_cast<std::size_t>(kSurface.width() * kSurface.height()), 255);
    for (const QPointF center : {QPointF(-100, 45), QPointF(300, 45), QPointF(60, -1e6), QPointF(1e9, 1e9)})
        QCOMPARE(coverageOf({center, 50.0}), covered);
}

REGISTER_APPLESS_TEST(CirclesTest)

} // namespace zeigewerk::test

#include "circles_test.moc"
