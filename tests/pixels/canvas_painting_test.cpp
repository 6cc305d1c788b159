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
    void withoutItsControllerItPaintsNothing();
    void theWhiteboardIsWhiteToTheEdges_data();
    void theWhiteboardIsWhiteToTheEdges();
    void shapesFadeByTheirAge_data();
    void shapesFadeByTheirAge();
    void theWhiteboardSuspendsFading();
    void theShapeInProgressNeverFades();
    void theShapeInProgressLiesAboveTheOthers();
};

void CanvasPaintingTest::withoutItsControllerItPaintsNothing()
{
    DrawingView view(QSizeF(160, 120));
    Picture picture(QSize(160, 120), 1.0);
    view.willDisplay();
    picture.repaintAll([&](platform::PaintTarget &target) { view.draw(target); });
    QVERIFY(isBlank(picture.image()));
}

void CanvasPaintingTest::theWhiteboardIsWhiteToTheEdges_data()
{
    QTest::addColumn<double>("scale");
    for (const double scale : {1.0, 1.25, 1.5, 2.0})
        QTest::addRow("scale %g", scale) << scale;
}

void CanvasPaintingTest::theWhiteboardIsWhiteToTheEdges()
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

void CanvasPaintingTest::shapesFadeByTheirAge_data()
{
    QTest::addColumn<bool>("autoFade");
    QTest::addColumn<double>("age");
    QTest::addColumn<int>("alpha");
    QTest::newRow("fresh") << true << 0.0 << 255;
    QTest::newRow("just held") << true << 3.999 << 255;
    QTest::newRow("half gone") << true << 4.4 << 128;
    QTest::newRow("gone") << true << 4.8 << 0;
    QTest::newRow("long gone") << true << 100.0 << 0;
    QTest::newRow("without auto-fade") << false << 100.0 << 255;
    QTest::newRow("from the future") << true << -50.0 << 255;
}

void CanvasPaintingTest::shapesFadeByTheirAge()
{
    QFETCH(const bool, autoFade);
    QFETCH(const double, age);
    QFETCH(const int, alpha);
    Canvas canvas(QSize(400, 300), 1.0, {.autoFade = autoFade});
    canvas.app().toggleDraw();
    canvas.draw(thickLine({50, 50}, {350, 50}));
    canvas.display();
    canvas.pass(age);
    canvas.display();
    QVERIFY(std::abs(canvas.at({200, 50}).alpha() - alpha) <= 1);
}

void CanvasPaintingTest::theWhiteboardSuspendsFading()
{
    Canvas canvas(QSize(400, 300), 1.0, {.autoFade = true});
    canvas.app().toggleDraw();
    canvas.draw(thickLine({50, 50}, {350, 50}));
    canvas.pass(4.5);
    canvas.display();
    QVERIFY(canvas.at({200, 50}).alpha() < 128);
    canvas.app().toggleBoard();
    canvas.display();
    QCOMPARE(canvas.at({200, 50}), kInk);
    QCOMPARE(canvas.at({200, 100}), kBoard);
    canvas.pass(10.0);
    canvas.app().toggleBoard();
    canvas.display();
    QCOMPARE(canvas.at({200, 50}), kNothing);
}

void CanvasPaintingTest::theShapeInProgressNeverFades()
{
    Canvas canvas(QSize(400, 300), 1.0, {.autoFade = true});
    canvas.app().toggleDraw();
    canvas.draw(thickLine({50, 50}, {350, 50}));
    canvas.drag(thickLine({50, 200}, {350, 200}));
    canvas.pass(4.4);
    canvas.display();
    QVERIFY(std::abs(canvas.at({200, 50}).alpha() - 128) <= 1);
    QCOMPARE(canvas.at({200, 200}), kInk);
    canvas.pass(100.0);
    canvas.display();
    QCOMPARE(canvas.at({200, 50}), kNothing);
    QCOMPARE(canvas.at({200, 200}), kInk);
}

void CanvasPaintingTest::theShapeInProgressLiesAboveTheOthers()
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
