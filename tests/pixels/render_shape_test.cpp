#include "drawing/render_shape.h"
#include "pixels/example_shapes.h"
#include "registered_test.h"

#include <QTest>

#include <cmath>

namespace zeigewerk::test {

namespace {

QByteArray coordinates(QPointF point)
{
    return QByteArray::number(point.x()) + ", " + QByteArray::number(point.y());
}

} // namespace

class RenderShapeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachShapeInksItsLinesAndNothingElse_data();
    void eachShapeInksItsLinesAndNothingElse();
    void shapesAreNotFilled_data();
    void shapesAreNotFilled();
    void fadingReplacesTheAlpha_data();
    void fadingReplacesTheAlpha();
    void aLineWithoutLengthIsADot();
    void anArrowWithoutLengthPointsRight();
    void theBarbLengthDependsOnTheLineWidth_data();
    void theBarbLengthDependsOnTheLineWidth();
    void draggingInAnyDirectionGivesTheSameBox_data();
    void draggingInAnyDirectionGivesTheSameBox();
    void newerShapesAreAboveOlderOnes();
    void undrawableShapesPaintNothing_data();
    void undrawableShapesPaintNothing();
};

void RenderShapeTest::eachShapeInksItsLinesAndNothingElse_data()
{
    QTest::addColumn<Shape>("shape");
    QTest::addColumn<Points>("inked");
    QTest::addColumn<Points>("blank");

    const double barb = 36.0 * std::cos(0.18 * M_PI);
    const double spread = 36.0 * std::sin(0.18 * M_PI);
    struct Outline
    {
        const char *name;
        Shape shape;
        Points inked;
        Points blank;
    };
    // All points are at least the diagonal of a pixel away from the edge of the ink.
    const Outline outlines[] = {
        {.name = "pen",
         .shape = freehandShape(Tool::pen, {{20, 20}, {100, 20}, {100, 80}}),
         .inked = {{20, 20}, {60, 21}, {99, 20}, {100, 50}, {101, 79}},
         .blank = {{60, 24.5}, {60, 15.5}, {16, 20}, {95.5, 50}, {104.5, 50}, {100, 84.5}}},
        {.name = "pen, slanted",
         .shape = freehandShape(Tool::pen, {{30, 20}, {90, 100}}, 9),
         .inked = {{60, 60}, {57.6, 61.8}, {62.4, 58.2}},
         .blank = {{55.2, 63.6}, {64.8, 56.4}, {26, 15}, {94, 105}}},
        {.name = "line, thin",
         .shape = shapeBetween(Tool::line, {20, 30}, {120, 30}, 3),
         .inked = {{20, 30.01}, {70, 30.01}, {119.9, 30.01}},
         .blank = {{70, 33.1}, {70, 26.9}, {16.9, 30}, {123.1, 30}}},
        {.name = "line, upwards",
         .shape = shapeBetween(Tool::line, {50, 100}, {50, 10}, 9),
         .inked = {{50, 100}, {47, 60}, {53, 60}, {50, 13}},
         .blank = {{44, 60}, {56, 60}, {50, 106}, {50, 4}}},
        {.name = "rectangle",
         .shape = shapeBetween(Tool::rect, {30, 30}, {110, 90}),
         .inked = {{30, 60}, {110, 60}, {70, 30}, {70, 90}, {31, 31}, {109, 89}},
         .blank = {{34.5, 60}, {25.5, 60}, {70, 34.5}, {70, 94.5}, {70, 60}, {26, 26}}},
        {.name = "ellipse",
         .shape = shapeBetween(Tool::ellipse, {30, 30}, {110, 90}, 9),
         .inked = {{30, 60}, {110, 60}, {70, 30}, {70, 90}, {98.3, 81.2}, {41.7, 38.8}},
         .blank = {{36.5, 60}, {23.5, 60}, {70, 36.5}, {70, 96.5}, {70, 60}, {105, 85}}},
        {.name = "arrow, shaft",
         .shape = shapeBetween(Tool::arrow, {20, 60}, {120, 60}, 9),
         .inked = {{20, 60}, {70, 60}, {119, 60}},
         .blank = {{126.5, 60}, {60, 66.5}}},
        {.name = "arrow, barbs",
         .shape = shapeBetween(Tool::arrow, {20, 60}, {120, 60}, 9),
         .inked = {{120 - barb, 60 + spread}, {120 - barb, 60 - spread}, {120 - barb / 2, 60 + spread / 2}},
         .blank = {{120 - barb, 60 + spread + 6.5}, {120 - barb, 70}}},
    };
    for (const auto &[name, shape, inked, blank] : outlines)
        QTest::newRow(name) << shape << inked << blank;
}

void RenderShapeTest::eachShapeInksItsLinesAndNothingElse()
{
    QFETCH(const Shape, shape);
    QFETCH(const Points, inked);
    QFETCH(const Points, blank);
    for (const double scale : kScales) {
        const Picture picture = pictureOf({shape}, scale);
        for (const QPointF &point : inked)
            QVERIFY2(picture.at(point) == kInk, coordinates(point));
        for (const QPointF &point : blank)
            QVERIFY2(picture.at(point) == kTransparent, coordinates(point));
    }
}

void RenderShapeTest::shapesAreNotFilled_data()
{
    QTest::addColumn<Shape>("shape");
    QTest::newRow("pen, closed") << freehandShape(Tool::pen, {{20, 20}, {100, 20}, {60, 100}, {20, 20}});
    QTest::newRow("rectangle") << shapeBetween(Tool::rect, {10, 10}, {110, 90});
    QTest::newRow("ellipse") << shapeBetween(Tool::ellipse, {10, 10}, {110, 90});
}

void RenderShapeTest::shapesAreNotFilled()
{
    QFETCH(const Shape, shape);
    for (const double scale : kScales)
        QCOMPARE(pictureOf({shape}, scale).at({60, 45}), kTransparent);
}

void RenderShapeTest::fadingReplacesTheAlpha_data()
{
    QTest::addColumn<Shape>("shape");
    QTest::addColumn<double>("fullAlpha");
    QTest::newRow("pen") << freehandShape(Tool::pen, {{20, 60}, {100, 60}}) << 1.0;
    QTest::newRow("highlighter") << freehandShape(Tool::highlighter, {{20, 60}, {100, 60}}) << 0.4;
    QTest::newRow("line") << shapeBetween(Tool::line, {20, 60}, {100, 60}) << 1.0;
    QTest::newRow("arrow") << shapeBetween(Tool::arrow, {20, 60}, {140, 60}) << 1.0;
    QTest::newRow("rectangle") << shapeBetween(Tool::rect, {20, 60}, {100, 90}) << 1.0;
    QTest::newRow("ellipse") << shapeBetween(Tool::ellipse, {20, 60}, {100, 90}) << 1.0;
    // The stem of a bold letter is a few points wide.
    QTest::newRow("text") << textShape(QStringLiteral("I"), {60 - 8.0 / 2, 50}) << 1.0;
}

void RenderShapeTest::fadingReplacesTheAlpha()
{
    QFETCH(Shape, shape);
    QFETCH(const double, fullAlpha);
    // A fade that multiplied the alpha would show here.
    shape.color = shape.color.withAlpha(0.3);
    for (const double fade : {1.0, 0.5, 0.25}) {
        const int alpha = pictureOf({shape}, 1.0, fade).at({60, 60}).alpha();
        QVERIFY2(std::abs(alpha - 255.0 * fullAlpha * fade) <= 1.0, QByteArray::number(alpha));
    }
    QVERIFY(isBlank(pictureOf({shape}, 1.0, 0.0).image()));
    QVERIFY(isBlank(pictureOf({shape}, 1.0, kNotANumber).image()));
}

void RenderShapeTest::aLineWithoutLengthIsADot()
{
    const Picture picture = pictureOf({shapeBetween(Tool::line, {40, 40}, {40, 40}, 9)});
    for (const QPointF offset : {QPointF(3, 0), QPointF(-3, 0), QPointF(0, 3), QPointF(0, -3)}) {
        QCOMPARE(picture.at(QPointF(40, 40) + offset), kInk);
        QCOMPARE(picture.at(QPointF(40, 40) + 2.0 * offset), kTransparent);
    }
}

void RenderShapeTest::anArrowWithoutLengthPointsRight()
{
    const Picture picture = pictureOf({shapeBetween(Tool::arrow, {80, 60}, {80, 60}, 9)});
    const QPointF barb(36.0 * std::cos(0.18 * M_PI), 36.0 * std::sin(0.18 * M_PI));
    QCOMPARE(picture.at(QPointF(80, 60) - barb), kInk);
    QCOMPARE(picture.at(QPointF(80 - barb.x(), 60 + barb.y())), kInk);
    QCOMPARE(picture.at({86, 60}), kTransparent);
}

void RenderShapeTest::theBarbLengthDependsOnTheLineWidth_data()
{
    QTest::addColumn<double>("width");
    QTest::addColumn<double>("length");
    QTest::newRow("minimum length") << 3.0 << 16.0;
    QTest::newRow("just above the minimum") << 5.0 << 20.0;
    QTest::newRow("long") << 9.0 << 36.0;
}

void RenderShapeTest::theBarbLengthDependsOnTheLineWidth()
{
    QFETCH(const double, width);
    QFETCH(const double, length);
    const QPointF tip(100, 90);
    const Picture picture = pictureOf({shapeBetween(Tool::arrow, {20, 30}, tip, width)}, 2.0);
    // The shaft rises to the right by 3 : 4; the barbs point back, 32.4 degrees off it.
    const double shaft = std::atan2(60.0, 80.0);
    for (const double lean : {-0.82 * M_PI, 0.82 * M_PI}) {
        const QPointF along(std::cos(shaft + lean), std::sin(shaft + lean));
        QCOMPARE(picture.at(tip + length * along), kInk);
        QCOMPARE(picture.at(tip + (length + width / 2 + 1.0) * along), kTransparent);
    }
}

void RenderShapeTest::draggingInAnyDirectionGivesTheSameBox_data()
{
    QTest::addColumn<Tool>("tool");
    QTest::newRow("rectangle") << Tool(Tool::rect);
    QTest::newRow("ellipse") << Tool(Tool::ellipse);
}

void RenderShapeTest::draggingInAnyDirectionGivesTheSameBox()
{
    QFETCH(const Tool, tool);
    const QImage expected = pictureOf({shapeBetween(tool, {20, 90}, {130, 30})}).image();
    QVERIFY(!isBlank(expected));
    for (const auto &[start, end] :
         {std::pair(QPointF(130, 30), QPointF(20, 90)), std::pair(QPointF(20, 30), QPointF(130, 90)),
          std::pair(QPointF(130, 90), QPointF(20, 30))})
        QCOMPARE(pictureOf({shapeBetween(tool, start, end)}).image(), expected);
}

void RenderShapeTest::newerShapesAreAboveOlderOnes()
{
    Shape newer = shapeBetween(Tool::line, {80, 10}, {80, 110});
    newer.color = kNavy;
    const Picture picture = pictureOf({shapeBetween(Tool::line, {10, 60}, {150, 60}), newer});
    QCOMPARE(picture.at({80, 60}), QColor(0x18, 0x22, 0x45));
    QCOMPARE(picture.at({60, 60}), kInk);
}

void RenderShapeTest::undrawableShapesPaintNothing_data()
{
    QTest::addColumn<Shape>("shape");
    for (const double bad : {kNotANumber, kInfinity, -kInfinity, 1e300, -1e9}) {
        for (const Tool tool : Tool::allCases) {
            Shape shape = shapeBetween(tool, {bad, 20}, {40, bad});
            shape.points = {{bad, 10}, {10, bad}};
            shape.text = QStringLiteral("T");
            QTest::addRow("tool %d at %g", tool.rawValue(), bad) << shape;
        }
    }
    for (const double width : {0.0, -5.0, kNotANumber, kInfinity, 1e300})
        QTest::addRow("width %g", width) << shapeBetween(Tool::line, {10, 10}, {50, 50}, width);
}

void RenderShapeTest::undrawableShapesPaintNothing()
{
    QFETCH(const Shape, shape);
    QVERIFY(isBlank(pictureOf({shape}).image()));
    QVERIFY(paintedArea(shape).isEmpty());
}

REGISTER_TEST(RenderShapeTest)

} // namespace zeigewerk::test

#include "render_shape_test.moc"
