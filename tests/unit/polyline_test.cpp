#include "drawing/polyline.h"
#include "random_input.h"
#include "registered_test.h"

#include <QTest>

#include <limits>

namespace zeigewerk {

using Lines = std::vector<std::pair<QPointF, QPointF>>;

namespace {

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
/// Enough points for many runs, of which the last is not full.
constexpr int kPointCount = 1003;

Lines linesNear(const Polyline &line, const Box &area)
{
    Lines lines;
    line.forEachLineNear(area, [&](QPointF from, QPointF to) { lines.emplace_back(from, to); });
    return lines;
}

/// A random walk in steps of up to ten points, now and then to an undrawable point.
Polyline randomWalk(test::RandomInput &random)
{
    const auto step = [&random] { return random.real(-10.0, 10.0); };
    Polyline line;
    QPointF position(0, 0);
    for (int i = 0; i < kPointCount; ++i) {
        position += QPointF(step(), step());
        line.push_back(random.chance(0.05) ? QPointF(kNotANumber, position.y()) : position);
    }
    return line;
}

} // namespace

class PolylineTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itKeepsThePointsItWasGiven();
    void itsBoundsContainEveryDrawablePoint();
    void everyLineThatTouchesTheAreaIsVisitedInOrder();
    void distantLinesAreNotVisited();
    void theLineBetweenTwoRunsIsVisited();
    void undrawablePointsAreSkipped();
};

void PolylineTest::itKeepsThePointsItWasGiven()
{
    Polyline line{{1, 2}, {3, 4}};
    line.push_back({5, 6});
    QCOMPARE(std::vector<QPointF>(line.begin(), line.end()), (std::vector<QPointF>{{1, 2}, {3, 4}, {5, 6}}));
    QCOMPARE(line.size(), std::size_t{3});
    QCOMPARE(line.front(), QPointF(1, 2));
    QCOMPARE(line.back(), QPointF(5, 6));
    QVERIFY(line == Polyline(std::vector<QPointF>{{1, 2}, {3, 4}, {5, 6}}));
    QVERIFY(Polyline().empty());
}

void PolylineTest::itsBoundsContainEveryDrawablePoint()
{
    const Polyline line{{10, 5}, {kNotANumber, 1}, {-3, 8}, {1e9, 0}};
    QCOMPARE(line.bounds().left, -3.0);
    QCOMPARE(line.bounds().right, 10.0);
    QCOMPARE(line.bounds().bottom, 5.0);
    QCOMPARE(line.bounds().top, 8.0);
    QVERIFY(Polyline().bounds().isEmpty());
    QVERIFY(Polyline({{kNotANumber, 1}}).bounds().isEmpty());
    QVERIFY(!Polyline({{7, 7}}).bounds().isEmpty());
}

void PolylineTest::everyLineThatTouchesTheAreaIsVisitedInOrder()
{
    test::RandomInput random;
    const auto coordinate = [&random] { return random.real(-300.0, 300.0); };
    for (int i = 0; i < 50; ++i) {
        const Polyline line = randomWalk(random);
        const Lines all = linesNear(line, line.bounds());
        const QPointF corner(coordinate(), coordinate());
        const Box area{corner.x(), corner.y(), corner.x() + 40.0, corner.y() + 40.0};
        const Lines visited = linesNear(line, area);
        auto next = visited.begin();
        for (const auto &one : all) {
            Box span;
            span.add(one.first);
            span.add(one.second);
            const auto found = std::find(next, visited.end(), one);
            QVERIFY(found != visited.end() || !span.touches(area));
            next = found == visited.end() ? next : found;
        }
    }
}

void PolylineTest::distantLinesAreNotVisited()
{
    Polyline line;
    for (int i = 0; i < kPointCount; ++i)
        line.push_back(QPointF(10.0 * i, 0.0));
    QCOMPARE(linesNear(line, {0, 0, 10.0 * kPointCount, 0}).size(), std::size_t{kPointCount - 1});
    const std::size_t some = linesNear(line, {5000, -1, 5010, 1}).size();
    QVERIFY(some > 0);
    QVERIFY(some < 100);
    QVERIFY(linesNear(line, {5000, 5, 5010, 6}).empty());
}

void PolylineTest::theLineBetweenTwoRunsIsVisited()
{
    // The line from the end of one run to the start of the next crosses the area; both runs are elsewhere.
    for (int before = 1; before < 70; ++before) {
        Polyline line;
        for (int i = 0; i < before; ++i)
            line.push_back({-100, 0.0 + i});
        for (int i = 0; i < 70; ++i)
            line.push_back({100, 0.0 + i});
        const Lines visited = linesNear(line, {-1, -1000, 1, 1000});
        const std::pair across(QPointF(-100, before - 1), QPointF(100, 0));
        QVERIFY(std::find(visited.begin(), visited.end(), across) != visited.end());
    }
}

void PolylineTest::undrawablePointsAreSkipped()
{
    Polyline line{{0, 0}};
    for (int i = 0; i < 200; ++i)
        line.push_back({kNotANumber, 0});
    line.push_back({10, 0});
    QCOMPARE(linesNear(line, {4, -1, 5, 1}), (Lines{{{0, 0}, {10, 0}}}));
    QCOMPARE(line.lastDrawableOf(150), QPointF(0, 0));
    QVERIFY(!line.lastDrawableOf(0));
}

REGISTER_APPLESS_TEST(PolylineTest)

} // namespace zeigewerk

#include "polyline_test.moc"
