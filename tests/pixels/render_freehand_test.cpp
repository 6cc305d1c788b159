#include "pixels/example_shapes.h"
#include "registered_test.h"

#include <QTest>

#include <cmath>

namespace zeigewerk::test {

class RenderFreehandTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aSinglePointIsARoundDotAsWideAsTheStroke_data();
    void aSinglePointIsARoundDotAsWideAsTheStroke();
    void repeatingAPointLeavesTheSameDot();
    void aStrokeWithoutPointsPaintsNothing();
    void theHighlighterIsFourTimesAsWideAndTranslucent();
    void aPenStrokeShowsThroughTheHighlighter();
    void aHighlighterIsNoDarkerWhereItCrossesItself();
    void aHalfFadedHighlighterHasAnAlphaOfOneFifth();
    void undrawablePointsAreSkipped();
};

void RenderFreehandTest::aSinglePointIsARoundDotAsWideAsTheStroke_data()
{
    QTest::addColumn<Tool>("tool");
    QTest::addColumn<double>("width");
    QTest::addColumn<double>("diameter");
    for (const double width : {3.0, 5.0, 9.0}) {
        QTest::addRow("pen %g", width) << Tool(Tool::pen) << width << width;
        QTest::addRow("highlighter %g", width) << Tool(Tool::highlighter) << width << 4.0 * width;
    }
}

void RenderFreehandTest::aSinglePointIsARoundDotAsWideAsTheStroke()
{
    QFETCH(const Tool, tool);
    QFETCH(const double, width);
    QFETCH(const double, diameter);
    constexpr double kScale = 2.0;
    const Picture picture = pictureOf({freehandShape(tool, {{80, 60}}, width)}, kScale);
    double area = 0.0;
    double extent = 0.0;
    const double full = picture.at({80, 60}).alphaF();
    for (int y = 0; y < picture.image().height(); ++y) {
        for (int x = 0; x < picture.image().width(); ++x) {
            const double coverage = picture.image().pixelColor(x, y).alphaF() / full;
            area += coverage / (kScale * kScale);
            const QPointF offset = picture.geometry().toView(QPointF(x + 0.5, y + 0.5)) - QPointF(80.05, 60);
            extent = coverage > 0.5 ? std::max(extent, std::hypot(offset.x(), offset.y())) : extent;
        }
    }
    // It is a circle if both its area and its extent are those of a circle.
    const double expected = M_PI * diameter * diameter / 4.0 + 0.1 * diameter;
    QVERIFY2(std::abs(area - expected) < 0.05 * expected, QByteArray::number(area));
    QVERIFY2(extent < diameter / 2.0 + 0.3, QByteArray::number(extent));
}

void RenderFreehandTest::repeatingAPointLeavesTheSameDot()
{
    const Points repeated(7, QPointF(40, 40));
    QCOMPARE(pictureOf({freehandShape(Tool::pen, repeated)}).image(),
             pictureOf({freehandShape(Tool::pen, {{40, 40}})}).image());
}

void RenderFreehandTest::aStrokeWithoutPointsPaintsNothing()
{
    QVERIFY(isBlank(pictureOf({freehandShape(Tool::pen, {}), freehandShape(Tool::highlighter, {})}).image()));
}

void RenderFreehandTest::theHighlighterIsFourTimesAsWideAndTranslucent()
{
    for (const double width : {3.0, 5.0, 9.0}) {
        const Picture picture =
            pictureOf({freehandShape(Tool::highlighter, {{30, 60}, {120, 60}}, width)}, 1.5);
        for (const double side : {-1.0, 1.0}) {
            QCOMPARE(picture.at({75, 60 + side * (2 * width - 1.0)}).alpha(), 102);
            QCOMPARE(picture.at({75, 60 + side * (2 * width + 1.0)}), kTransparent);
        }
    }
}

void RenderFreehandTest::aPenStrokeShowsThroughTheHighlighter()
{
    const Points path = {{30, 60}, {120, 60}};
    const Picture picture =
        pictureOf({freehandShape(Tool::pen, path, 5), freehandShape(Tool::highlighter, path, 5)});
    QCOMPARE(picture.at({75, 60}), kInk);
    QCOMPARE(picture.at({75, 67}).alpha(), 102);
}

void RenderFreehandTest::aHighlighterIsNoDarkerWhereItCrossesItself()
{
    const Picture picture = pictureOf(
        {freehandShape(Tool::highlighter, {{30, 60}, {120, 60}, {120, 100}, {75, 100}, {75, 20}, {30, 60}})});
    for (const QPointF crossing : {QPointF(75, 60), QPointF(30, 60), QPointF(120, 61), QPointF(75, 99)})
        QCOMPARE(picture.at(crossing).alpha(), 102);
}

void RenderFreehandTest::aHalfFadedHighlighterHasAnAlphaOfOneFifth()
{
    const Picture picture = pictureOf({freehandShape(Tool::highlighter, {{30, 60}, {120, 60}})}, 1.0, 0.5);
    QCOMPARE(picture.at({75, 60}).alpha(), 51);
}

void RenderFreehandTest::undrawablePointsAreSkipped()
{
    const Points points = {{kNotANumber, 1}, {20, 20}, {kInfinity, 50}, {1e200, 3}, {90, 70}};
    QCOMPARE(pictureOf({freehandShape(Tool::pen, points)}).image(),
             pictureOf({freehandShape(Tool::pen, {{20, 20}, {90, 70}})}).image());
}

REGISTER_TEST(RenderFreehandTest)

} // namespace zeigewerk::test

#include "render_freehand_test.moc"
