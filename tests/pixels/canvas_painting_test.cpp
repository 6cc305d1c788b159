#include "pixels/canvas.h"
#include "pixels/example_shapes.h"
#include "registered_test.h"

#include <QTest>

#include <cmath>

namespace zeigewerk::test {

class CanvasPaintingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutAControllerACanvasPaintsNothing();
    void theWhiteboardIsWhiteUpToTheEdges_data();
    void theWhiteboardIsWhiteUpToTheEdges();
    void shapesFadeWithTheirAge_data();
    void shapesFadeWithTheirAge();
    void theWhiteboardSuspendsFading();
    void theShapeInProgressNeverFades();
    void theShapeInProgressIsAboveTheOthers();
};

void CanvasPaintingTest::withoutAControllerACanvasPaintsNothing()
{
    DrawingView view(QSizeF(160, 120));
    Picture picture(QSize(160, 120), 1.0);
    view.willDisplay();
    picture.repaintAll([&](platform::PaintTarget &target) { view.draw(target); });
    QVERIFY(isBlank(picture.image()));
}

void CanvasPaintingTest::theWhiteboardIsWhiteUpToTheEdges_data()
{
    QTest::addColumn<double>("scale");
    for (const double scale : {1.0, 1.25, 1.5, 2.0})
        QTest::addRow("scale %g", scale) << scale;
}

void CanvasPaintingTest::theWhiteboardIsWhiteUpToTheEdges()
{
    QFETCH(const double, scale);
    Canvas canvas(QSize(401, 303), scale);
    canvas.app().toggleBoard();
    canvas.display();
    QImage white(canvas.image().size(), canvas.image().format());
    white.fill(Qt::white);
    QCOMPARE(canvas.image(), white);
    canvas.app().toggleDraw();
    canvas.app().toggleBoard();
    canvas.display();
    QVERIFY(isBlank(canvas.image()));
}

void CanvasPaintingTest::shapesFadeWithTheirAge_data()
{
    QTest::addColumn<bool>("autoFade");
    QTest::addColumn<double>("age");
    QTest::addColumn<int>("alpha");
    QTest::newRow("fresh") << true << 0.0 << 255;
    QTest::newRow("end of the hold") << true << 3.999 << 255;
    QTest::newRow("half faded") << true << 4.4 << 128;
    QTest::newRow("faded") << true << 4.8 << 0;
    QTest::newRow("faded long ago") << true << 100.0 << 0;
    QTest::newRow("without auto-fade") << false << 100.0 << 255;
    QTest::newRow("clock set back") << true << -50.0 << 255;
}

void CanvasPaintingTest::shapesFadeWithTheirAge()
{
    QFETCH(const bool, autoFade);
    QFETCH(const double, age);
    QFETCH(const int, alpha);
    Canvas canvas(QSize(400, 300), 1.0, {.autoFade = autoFade});
    canvas.app().toggleDraw();
    canvas.draw(thickLine({50, 50}, {350, 50}));
    canvas.display();
    canvas.passTime(age);
    canvas.display();
    QVERIFY(std::abs(canvas.at({200, 50}).alpha() - alpha) <= 1);
}

void CanvasPaintingTest::theWhiteboardSuspendsFading()
{
    Canvas canvas(QSize(400, 300), 1.0, {.autoFade = true});
    canvas.app().toggleDraw();
    canvas.draw(thickLine({50, 50}, {350, 50}));
    canvas.passTime(4.5);
    canvas.display();
    QVERIFY(canvas.at({200, 50}).alpha() < 128);
    canvas.app().toggleBoard();
    canvas.display();
    QCOMPARE(canvas.at({200, 50}), kInk);
    QCOMPARE(canvas.at({200, 100}), kBoard);
    canvas.passTime(10.0);
    canvas.app().toggleBoard();
    canvas.display();
    QCOMPARE(canvas.at({200, 50}), kTransparent);
}

void CanvasPaintingTest::theShapeInProgressNeverFades()
{
    Canvas canvas(QSize(400, 300), 1.0, {.autoFade = true});
    canvas.app().toggleDraw();
    canvas.draw(thickLine({50, 50}, {350, 50}));
    canvas.drag(thickLine({50, 200}, {350, 200}));
    canvas.passTime(4.4);
    canvas.display();
    QVERIFY(std::abs(canvas.at({200, 50}).alpha() - 128) <= 1);
    QCOMPARE(canvas.at({200, 200}), kInk);
    canvas.passTime(100.0);
    canvas.display();
    QCOMPARE(canvas.at({200, 50}), kTransparent);
    QCOMPARE(canvas.at({200, 200}), kInk);
}

void CanvasPaintingTest::theShapeInProgressIsAboveTheOthers()
{
    Canvas canvas;
    canvas.app().toggleDraw();
    canvas.draw(thickLine({50, 100}, {350, 100}, kBlack));
    canvas.drag(thickLine({200, 50}, {200, 150}));
    canvas.display();
    QCOMPARE(canvas.at({200, 100}), kInk);
    QCOMPARE(canvas.at({150, 100}), QColor(Qt::black));
}

REGISTER_TEST(CanvasPaintingTest)

} // namespace zeigewerk::test

#include "canvas_painting_test.moc"
