#include "drawing/shape.h"
#include "registered_test.h"

#include <QTest>

using zeigewerk::Shape;
using zeigewerk::Tool;
using zeigewerk::WallClock;

class ShapeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewShapeIsCreatedNow();
    void laterShapesAreNotCreatedEarlier();
    void aGivenCreationTimeIsKept();
    void aCopyIsIndependent();
};

void ShapeTest::aNewShapeIsCreatedNow()
{
    const auto before = WallClock::now();
    const Shape shape;
    QVERIFY(before <= shape.created && shape.created <= WallClock::now());
}

void ShapeTest::laterShapesAreNotCreatedEarlier()
{
    const Shape first;
    const Shape second;
    QVERIFY(first.created <= second.created);
}

void ShapeTest::aGivenCreationTimeIsKept()
{
    const zeigewerk::TimePoint then{std::chrono::milliseconds(1'234'567)};
    const Shape shape{Tool::text, {}, {1, 2}, {3, 4}, zeigewerk::kNavy, 9.0, QStringLiteral("x"), then};
    QVERIFY(shape.created == then);
    QCOMPARE(shape.tool, Tool(Tool::text));
    QCOMPARE(shape.start, QPointF(1, 2));
    QCOMPARE(shape.end, QPointF(3, 4));
    QVERIFY(shape.color == zeigewerk::kNavy);
    QCOMPARE(shape.width, 9.0);
    QCOMPARE(shape.text, QStringLiteral("x"));
}

void ShapeTest::aCopyIsIndependent()
{
    const Shape original{
        .tool = Tool::pen, .points = {{1, 1}}, .start = {}, .end = {}, .color = {}, .text = {}};
    Shape copy = original;
    QVERIFY(copy == original);
    copy.points.push_back({2, 2});
    QVERIFY(copy != original);
    QCOMPARE(original.points.size(), std::size_t{1});
}

REGISTER_APPLESS_TEST(ShapeTest)
#include "shape_test.moc"
