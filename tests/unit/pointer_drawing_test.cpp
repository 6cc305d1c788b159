#include "canvas/constraint.h"
#include "controller_fixture.h"
#include "registered_test.h"

#include <QTest>

#include <cmath>
#include <numbers>

using namespace zeigewerk;
using platform::Modifier;
using platform::Modifiers;
using platform::PointerEvent;
using test::Controller;

namespace {

PointerEvent at(double x, double y)
{
    return {{x, y}, {}};
}

PointerEvent withShift(double x, double y)
{
    return {{x, y}, Modifier::Shift};
}

/// Whether two points are equal except for the rounding of sines and cosines.
bool isNear(QPointF a, QPointF b)
{
    return std::hypot(a.x() - b.x(), a.y() - b.y()) < 1e-9;
}

} // namespace

class PointerDrawingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shiftConstrainsTheDrag_data();
    void shiftConstrainsTheDrag();
    void aPressWithoutInteractionDoesNothing();
    void aPressTakesTheKeyboardAndBeginsAShape();
    void aClickLeavesAShapeOfOnePoint();
    void everyDragBecomesAPoint_data();
    void everyDragBecomesAPoint();
    void shiftMakesAFreehandStrokeStraight();
    void releasingShiftContinuesFreehandFromTheStraightLine();
    void shiftWithABoxToolKeepsThePoints();
    void theAgeOfAShapeCountsFromItsRelease();
    void toolColourAndWidthAreThoseOfThePress();
    void aDragWithoutAPressDoesNothing();
    void aReleaseWithoutAPressDoesNothing();
    void theTextToolBeginsNoShape();
    void withoutAControllerAStrokeIsStillFinished();
};

void PointerDrawingTest::shiftConstrainsTheDrag_data()
{
    QTest::addColumn<Tool>("tool");
    QTest::addColumn<QPointF>("start");
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<QPointF>("expected");

    const auto row = [](const char *name, Tool tool, QPointF start, QPointF point, QPointF expected) {
        QTest::newRow(name) << tool << start << point << expected;
    };
    const double diagonal = std::hypot(10, 9) / std::numbers::sqrt2;
    row("pen, below the diagonal", Tool::pen, {50, 60}, {60, 69}, {50 + diagonal, 60 + diagonal});
    row("highlighter snaps like the pen", Tool::highlighter, {0, 0}, {10, 9}, {diagonal, diagonal});
    row("line, nearly horizontal", Tool::line, {0, 0}, {100, 3}, {std::hypot(100, 3), 0});
    row("line, upwards", Tool::line, {5, 5}, {5, 45}, {5, 45});
    row("arrow to the left", Tool::arrow, {40, 30}, {30, 30}, {30, 30});
    row("line without length", Tool::line, {7, 8}, {7, 8}, {7, 8});
    row("rectangle down to the right", Tool::rect, {100, 100}, {130, 80}, {130, 70});
    row("ellipse up to the left", Tool::ellipse, {0, 0}, {-5, 12}, {-12, 12});
    row("no width counts as to the right", Tool::rect, {0, 0}, {0, -20}, {20, -20});
    row("no height counts as upwards", Tool::rect, {0, 0}, {-20, 0}, {-20, 20});
}

void PointerDrawingTest::shiftConstrainsTheDrag()
{
    QFETCH(Tool, tool);
    QFETCH(QPointF, start);
    QFETCH(QPointF, point);
    QFETCH(QPointF, expected);
    QVERIFY(isNear(constrained(tool, start, point), expected));
}

void PointerDrawingTest::aPressWithoutInteractionDoesNothing()
{
    Controller controller;
    controller.app().toggleSpot();
    controller.desktop.takeLog();
    controller.view().mouseDown(at(10, 10));
    QVERIFY(!controller.view().current());
    QCOMPARE(controller.desktop.takeLog(), QStringList());
}

void PointerDrawingTest::aPressTakesTheKeyboardAndBeginsAShape()
{
    Controller controller(test::twoScreens());
    controller.app().toggleDraw();
    controller.desktop.takeLog();
    controller.view(1).mouseDown(at(10, 20));
    QCOMPARE(controller.desktop.takeLog(), QStringList("overlay 1: make key"));
    const Shape expected{.tool = Tool::pen,
                         .points = {{10, 20}},
                         .start = {10, 20},
                         .end = {10, 20},
                         .color = kOrange,
                         .width = 5.0,
                         .text = {},
                         .created = controller.now};
    QVERIFY(controller.view(1).current() == expected);
}

void PointerDrawingTest::aClickLeavesAShapeOfOnePoint()
{
    Controller controller;
    controller.app().toggleBoard();
    controller.view().mouseDown(at(30, 40));
    controller.view().mouseUp(at(30, 40));
    QVERIFY(!controller.view().current());
    QCOMPARE(controller.view().shapes().size(), 1U);
    QCOMPARE(controller.view().shapes().front().points, std::vector<QPointF>({{30, 40}}));
    QCOMPARE(controller.app().shapeOrder(), std::vector<DrawingView *>{&controller.view()});
}

void PointerDrawingTest::everyDragBecomesAPoint_data()
{
    QTest::addColumn<int>("tool");
    for (const Tool tool : Tool::allCases) {
        if (tool != Tool::text)
            QTest::newRow(qPrintable(tool.tip())) << tool.rawValue();
    }
}

void PointerDrawingTest::everyDragBecomesAPoint()
{
    QFETCH(int, tool);
    Controller controller;
    controller.app().setTool(*Tool::fromRawValue(tool));
    controller.app().toggleDraw();
    controller.view().mouseDown(at(10, 10));
    controller.view().mouseDragged(at(12.25, 11.5));
    controller.view().mouseDragged(at(-4, 900));
    controller.view().mouseUp(at(500, 500));
    const Shape &shape = controller.view().shapes().front();
    QCOMPARE(shape.tool.rawValue(), tool);
    QCOMPARE(shape.points, std::vector<QPointF>({{10, 10}, {12.25, 11.5}, {-4, 900}}));
    QCOMPARE(shape.start, QPointF(10, 10));
    QCOMPARE(shape.end, QPointF(-4, 900));
}

void PointerDrawingTest::shiftMakesAFreehandStrokeStraight()
{
    Controller controller;
    controller.app().toggleDraw();
    controller.view().mouseDown(at(0, 0));
    controller.view().mouseDragged(at(3, 8));
    controller.view().mouseDragged(withShift(10, 9));
    const double diagonal = std::hypot(10, 9) / std::numbers::sqrt2;
    QCOMPARE(controller.view().current()->points.size(), 2U);
    QCOMPARE(controller.view().current()->points.front(), QPointF(0, 0));
    QVERIFY(isNear(controller.view().current()->points.back(), {diagonal, diagonal}));
    QVERIFY(isNear(controller.view().current()->end, {diagonal, diagonal}));
}

void PointerDrawingTest::releasingShiftContinuesFreehandFromTheStraightLine()
{
    Controller controller;
    controller.app().toggleDraw();
    controller.view().mouseDown(at(0, 0));
    controller.view().mouseDragged(at(3, 8));
    controller.view().mouseDragged(withShift(50, 0));
    controller.view().mouseDragged(at(60, 5));
    QCOMPARE(controller.view().current()->points, std::vector<QPointF>({{0, 0}, {50, 0}, {60, 5}}));
}

void PointerDrawingTest::shiftWithABoxToolKeepsThePoints()
{
    Controller controller;
    controller.app().setTool(Tool::arrow);
    controller.app().toggleDraw();
    controller.view().mouseDown(at(40, 30));
    controller.view().mouseDragged(withShift(30, 30));
    QCOMPARE(controller.view().current()->points.size(), 2U);
    QVERIFY(isNear(controller.view().current()->end, {30, 30}));
}

void PointerDrawingTest::theAgeOfAShapeCountsFromItsRelease()
{
    Controller controller;
    controller.app().toggleDraw();
    controller.view().mouseDown(at(0, 0));
    controller.passTime(10);
    controller.view().mouseUp(at(0, 0));
    QVERIFY(controller.view().shapes().front().created == controller.now);
}

void PointerDrawingTest::toolColourAndWidthAreThoseOfThePress()
{
    Controller controller;
    controller.app().setColor(kPalette[2]);
    controller.app().setLineWidth(9);
    controller.app().toggleDraw();
    controller.view().mouseDown(at(0, 0));
    controller.app().setColor(kNavy);
    controller.app().setLineWidth(3);
    controller.app().setTool(Tool::rect);
    controller.view().mouseUp(at(0, 0));
    QVERIFY(controller.view().shapes().front().color == kPalette[2]);
    QCOMPARE(controller.view().shapes().front().width, 9.0);
    QCOMPARE(controller.view().shapes().front().tool, Tool(Tool::pen));
}

void PointerDrawingTest::aDragWithoutAPressDoesNothing()
{
    Controller controller;
    controller.app().toggleDraw();
    controller.view().mouseDragged(at(10, 10));
    QVERIFY(!controller.view().current());
}

void PointerDrawingTest::aReleaseWithoutAPressDoesNothing()
{
    Controller controller;
    controller.app().toggleDraw();
    controller.view().mouseUp(at(10, 10));
    QVERIFY(controller.view().shapes().empty());
    QVERIFY(controller.app().shapeOrder().empty());
}

void PointerDrawingTest::theTextToolBeginsNoShape()
{
    Controller controller;
    controller.app().setTool(Tool::text);
    controller.app().toggleDraw();
    controller.draw(controller.view());
    QVERIFY(controller.view().shapes().empty());
}

void PointerDrawingTest::withoutAControllerAStrokeIsStillFinished()
{
    platform::RecordingDesktop desktop;
    QTemporaryDir home;
    UserDefaults defaults(home.filePath("settings.ini"));
    auto app = std::make_unique<AppDelegate>(desktop, defaults);
    app->applicationDidFinishLaunching();
    app->toggleDraw();
    DrawingView view(QSizeF(100, 100));
    view.app = app.get();
    view.mouseDown(at(1, 1));
    app.reset();
    view.mouseDragged(at(5, 5));
    view.mouseUp(at(5, 5));
    QCOMPARE(view.shapes().size(), 1U);
    view.mouseDown(at(1, 1));
    QVERIFY(!view.current());
}

REGISTER_TEST(PointerDrawingTest)
#include "pointer_drawing_test.moc"
