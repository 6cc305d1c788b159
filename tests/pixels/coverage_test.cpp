#include "drawing/coverage.h"
#include "pixels/covered_pixels.h"
#include "registered_test.h"

#include <QTest>

#include <algorithm>
#include <cmath>

namespace zeigewerk::test {

namespace {

struct Line
{
    QPointF from;
    QPointF to;
};

/// The coverage of each pixel of the rectangle (0 to 255), row by row.
std::vector<int> coverageOf(const std::vector<Line> &lines, double halfWidth,
                            const QRect &rect = kWholeSurface)
{
    const auto paint = [&](platform::PaintTarget &target) {
        Coverage coverage(target);
        for (const Line &line : lines)
            coverage.addLine(line.from, line.to, halfWidth);
        coverage.blend(kBlackInk);
    };
    return coverageBy(paint, rect);
}

int at(const std::vector<int> &values, int x, int y)
{
    const int index = y * kSurface.width() + x;
    return values[static_cast<std::size_t>(index)];
}

double distance(QPointF point, const Line &line)
{
    const QPointF delta = line.to - line.from;
    const double square = QPointF::dotProduct(delta, delta);
    const double part =
        square > 0.0 ? std::clamp(QPointF::dotProduct(point - line.from, delta) / square, 0.0, 1.0) : 0.0;
    const QPointF offset = point - line.from - part * delta;
    return std::hypot(offset.x(), offset.y());
}

Line randomLine(RandomInput &random)
{
    const auto x = [&random] { return random.real(-30.0, 150.0); };
    const auto y = [&random] { return random.real(-30.0, 120.0); };
    Line line{{x(), y()}, {x(), y()}};
    switch (random.integer(0, 9)) {
    case 0:
        line.to = line.from;
        break;
    case 1:
        line.to.setX(line.from.x());
        break;
    case 2:
        line.to.setY(line.from.y());
        break;
    case 3:
        line.to = line.from + QPointF(0.4, 0.1);
        break;
    default:
        break;
    }
    return line;
}

} // namespace

class CoverageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void coverageIsThePartOfThePixelThatTheLineCovers();
    void coverageDependsOnTheDistanceFromTheLine();
    void aThinLineIsNotThickened();
    void theOrderOfLinesDoesNotMatter();
    void aPartIsPaintedLikeThatPartOfTheWhole();
};

void CoverageTest::coverageIsThePartOfThePixelThatTheLineCovers()
{
    // The line spans y = 38 to 43, which are five full rows; moved by a quarter, it covers the outer rows in
    // part.
    const std::vector<int> exact = coverageOf({{{20, 40.5}, {100, 40.5}}}, 2.5);
    QCOMPARE(at(exact, 60, 37), 0);
    for (int y = 38; y < 43; ++y)
        QCOMPARE(at(exact, 60, y), 255);
    QCOMPARE(at(exact, 60, 43), 0);
    const std::vector<int> moved = coverageOf({{{20, 40.75}, {100, 40.75}}}, 2.5);
    QCOMPARE(at(moved, 60, 38), 191);
    QCOMPARE(at(moved, 60, 39), 255);
    QCOMPARE(at(moved, 60, 43), 64);
    QCOMPARE(at(moved, 60, 44), 0);
    // The ends are round.
    QCOMPARE(at(exact, 18, 40), 255);
    QCOMPARE(at(exact, 16, 40), 0);
    QCOMPARE(at(exact, 17, 38), 0);
}

void CoverageTest::coverageDependsOnTheDistanceFromTheLine()
{
    RandomInput random;
    for (int i = 0; i < 300; ++i) {
        const Line line = randomLine(random);
        const double halfWidth = random.real(0.6, 20.0);
        const std::vector<int> values = coverageOf({line}, halfWidth);
        for (int y = 0; y < kSurface.height(); ++y) {
            for (int x = 0; x < kSurface.width(); ++x) {
                const double depth = halfWidth + 0.5 - distance({x + 0.5, y + 0.5}, line);
                const double expected = 255.0 * std::clamp(depth, 0.0, 1.0);
                // Lines are rounded to a grid of 1/64 pixel.
                if (std::abs(at(values, x, y) - expected) > 1.0 + 255.0 / 64.0)
                    QFAIL(qPrintable(QStringLiteral("line %1: pixel %2, %3 is covered by %4, not %5")
                                         .arg(i)
                                         .arg(x)
                                         .arg(y)
                                         .arg(at(values, x, y))
                                         .arg(expected)));
            }
        }
    }
}

void CoverageTest::aThinLineIsNotThickened()
{
    const std::vector<int> values = coverageOf({{{20, 40.5}, {100, 40.5}}}, 0.1);
    QCOMPARE(at(values, 60, 40), 51);
    QCOMPARE(at(values, 60, 39), 0);
    QCOMPARE(at(values, 60, 41), 0);
}

void CoverageTest::theOrderOfLinesDoesNotMatter()
{
    RandomInput random;
    for (int i = 0; i < 50; ++i) {
        std::vector<Line> lines(8);
        std::generate(lines.begin(), lines.end(), [&] { return randomLine(random); });
        const std::vector<int> values = coverageOf(lines, 4.0);
        random.shuffle(lines);
        lines.push_back(lines.front());
        QCOMPARE(coverageOf(lines, 4.0), values);
    }
}

void CoverageTest::aPartIsPaintedLikeThatPartOfTheWhole()
{
    RandomInput random;
    for (int i = 0; i < 500; ++i) {
        const std::vector<Line> lines = {randomLine(random), randomLine(random)};
        const std::vector<int> whole = coverageOf(lines, 3.3);
        const QRect rect = randomRect(random);
        const std::vector<int> part = coverageOf(lines, 3.3, rect);
        auto value = part.begin();
        for (int y = rect.top(); y <= rect.bottom(); ++y) {
            for (int x = rect.left(); x <= rect.right(); ++x)
                QCOMPARE(*value++, at(whole, x, y));
        }
    }
}

REGISTER_APPLESS_TEST(CoverageTest)

} // namespace zeigewerk::test

#include "coverage_test.moc"
