#include "pixels/canvas.h"
#include "pixels/example_shapes.h"
#include "registered_test.h"

#include <QTest>

#include <cmath>

namespace zeigewerk::test {

class CanvasRepaintTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anEmptyCanvasIsNotPainted();
    void aSurfaceShownAgainIsRepainted();
    void onlyTheWhiteboardAndTheSpotlightCauseFullRepaints();
    void movingTheSpotlightRepaintsOnlyItsTwoCircles();
    void aNewPointOfALongStrokeRepaintsOnlyItsSurroundings();
    void aFadingShapeRepaintsOnlyItself();
};

void CanvasRepaintTest::anEmptyCanvasIsNotPainted()
{
    Canvas canvas;
    canvas.app().toggleDraw();
    QVERIFY(!canvas.display());
    QVERIFY(isBlank(canvas.image()));
}

void CanvasRepaintTest::aSurfaceShownAgainIsRepainted()
{
    Canvas canvas;
    canvas.app().toggleDraw();
    canvas.draw(thickLine({50, 50}, {350, 250}));
    canvas.app().toggleSpot();
    canvas.display();
    const QImage before = canvas.image();
    canvas.surface().orderOut();
    canvas.surface().orderFrontRegardless();
    QVERIFY(isBlank(canvas.image()));
    canvas.view().surfaceIsBlank();
    canvas.display();
    QCOMPARE(canvas.image(), before);
}

void CanvasRepaintTest::onlyTheWhiteboardAndTheSpotlightCauseFullRepaints()
{
    Canvas canvas(QSize(400, 300), 1.0, {.autoFade = true});
    const auto counts = [&] {
        return std::pair(canvas.view().fullRepaints(FullRepaint::Whiteboard),
                         canvas.view().fullRepaints(FullRepaint::Spotlight));
    };
    canvas.app().toggleDraw();
    canvas.draw(thickLine({50, 50}, {350, 250}));
    canvas.display();
    canvas.passTime(4.2);
    canvas.display();
    canvas.draw(thickLine({50, 250}, {350, 50}));
    canvas.display();
    canvas.app().undoShape();
    canvas.display();
    canvas.app().clearAll();
    canvas.display();
    QCOMPARE(counts(), std::pair(0, 0));
    canvas.app().toggleBoard();
    canvas.display();
    QCOMPARE(counts(), std::pair(1, 0));
    canvas.app().toggleSpot();
    canvas.display();
    canvas.movePointer({100, 100});
    canvas.display();
    canvas.view().scrollWheel({.distance = 3.0, .isPrecise = false, .modifiers = {}});
    canvas.display();
    QCOMPARE(counts(), std::pair(1, 1));
    canvas.app().toggleBoard();
    canvas.app().toggleSpot();
    canvas.display();
    QCOMPARE(counts(), std::pair(2, 2));
}

void CanvasRepaintTest::movingTheSpotlightRepaintsOnlyItsTwoCircles()
{
    Canvas canvas(QSize(1600, 1200), 1.0, {.spotRadius = 50});
    canvas.desktop().setMouseLocation({300, 300});
    canvas.app().toggleSpot();
    canvas.display();
    canvas.movePointer({1200, 900});
    canvas.display();
    // Two squares as wide as the circle, with a margin of a few pixels.
    constexpr qint64 kSide = 100 + 6;
    QVERIFY(canvas.lastPaintedPixels() <= 2 * kSide * kSide);
    canvas.display();
    QCOMPARE(canvas.lastPaintedPixels(), 0);
}

void CanvasRepaintTest::aNewPointOfALongStrokeRepaintsOnlyItsSurroundings()
{
    Canvas canvas(QSize(1600, 1200));
    canvas.app().toggleDraw();
    canvas.app().setLineWidth(5);
    canvas.view().mouseDown({{100, 100}, {}});
    for (int i = 1; i <= 500; ++i)
        canvas.view().mouseDragged({{100.0 + 2 * i, 100.0 + i}, {}});
    canvas.display();
    canvas.view().mouseDragged({{1104, 602}, {}});
    canvas.display();
    QVERIFY(canvas.lastPaintedPixels() > 0);
    QVERIFY(canvas.lastPaintedPixels() <= 400);
}

void CanvasRepaintTest::aFadingShapeRepaintsOnlyItself()
{
    Canvas canvas(QSize(1600, 1200), 1.0, {.autoFade = true});
    canvas.app().toggleDraw();
    canvas.draw(thickLine({100, 100}, {1500, 1100}));
    canvas.passTime(3.0);
    canvas.draw(thickLine({100, 1100}, {700, 1100}));
    canvas.display();
    canvas.passTime(0.9);
    QVERIFY(!canvas.display());
    canvas.passTime(0.3);
    canvas.display();
    QVERIFY(canvas.lastPaintedPixels() > 0);
    QVERIFY(canvas.lastPaintedPixels() < 1600 * 1200 / 10);
    QVERIFY(canvas.at({800, 600}).alpha() < 255);
    QCOMPARE(canvas.at({400, 1100}), kInk);
}

REGISTER_TEST(CanvasRepaintTest)

} // namespace zeigewerk::test

#include "canvas_repaint_test.moc"
