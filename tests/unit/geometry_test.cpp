#include "platform/geometry.h"
#include "registered_test.h"

#include <QTest>

#include <cmath>

using namespace zeigewerk::platform;

namespace {

ScreenLayout mixedScales()
{
    return ScreenLayout({{.name = "A", .nativeFrame = {0, 0, 1920, 1080}, .scale = 1, .frame = {}},
                         {.name = "B", .nativeFrame = {1920, 0, 3840, 2160}, .scale = 2, .frame = {}},
                         {.name = "C", .nativeFrame = {0, 1080, 1366, 768}, .scale = 1.5, .frame = {}}});
}

} // namespace

class GeometryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void framesAreMeasuredUpwardsFromThePrimaryScreen();
    void thePrimaryScreenNeedNotBeAtTheOrigin();
    void mirroredScreensCountAsOne();
    void aScreensFrameConvertsBackToItsPixels_data();
    void aScreensFrameConvertsBackToItsPixels();
    void thePointOfAPixelIsInTheFrameOfItsScreen();
    void effectsAreCentredOnThePixelUnderThePointer();
    void aRectangleContainsOnlyItsLowerAndLeftEdges();
    void withoutScreensNothingIsScaled();
    void aRectangleIsOnTheScreenWithMostOfIt_data();
    void aRectangleIsOnTheScreenWithMostOfIt();
    void aPartOfAScreenConvertsToAFrame();
};

void GeometryTest::framesAreMeasuredUpwardsFromThePrimaryScreen()
{
    const ScreenLayout layout = mixedScales();
    QCOMPARE(layout.screens()[0].frame, QRectF(0, 0, 1920, 1080));
    QCOMPARE(layout.screens()[1].frame, QRectF(1920, 0, 1920, 1080));
    QCOMPARE(layout.screens()[2].frame, QRectF(0, -512, 1366 / 1.5, 512));
}

void GeometryTest::thePrimaryScreenNeedNotBeAtTheOrigin()
{
    const ScreenLayout layout({{.name = "B", .nativeFrame = {800, 200, 1000, 500}, .scale = 1, .frame = {}},
                               {.name = "A", .nativeFrame = {0, 0, 800, 600}, .scale = 1, .frame = {}}});
    QCOMPARE(layout.screens()[0].frame, QRectF(0, 0, 1000, 500));
    QCOMPARE(layout.screens()[1].frame, QRectF(-800, 100, 800, 600));
}

void GeometryTest::mirroredScreensCountAsOne()
{
    const ScreenLayout layout({{.name = "A", .nativeFrame = {0, 0, 800, 600}, .scale = 1, .frame = {}},
                               {.name = "B", .nativeFrame = {0, 0, 800, 600}, .scale = 2, .frame = {}},
                               {.name = "C", .nativeFrame = {0, 0, 800, 601}, .scale = 1, .frame = {}}});
    QCOMPARE(layout.screens().size(), 2U);
    QCOMPARE(layout.screens()[0].name, QString("A"));
    QCOMPARE(layout.screens()[1].name, QString("C"));
}

void GeometryTest::aScreensFrameConvertsBackToItsPixels_data()
{
    QTest::addColumn<double>("scale");
    for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0})
        QTest::addRow("scale %g", scale) << scale;
}

void GeometryTest::aScreensFrameConvertsBackToItsPixels()
{
    QFETCH(double, scale);
    for (const QSize size : {QSize(1366, 768), QSize(1920, 1080), QSize(3840, 2160), QSize(1280, 1023)}) {
        const ScreenLayout layout(
            {{.name = "A", .nativeFrame = {QPoint(0, 0), size}, .scale = scale, .frame = {}},
             {.name = "B", .nativeFrame = {QPoint(size.width(), 37), size}, .scale = scale, .frame = {}}});
        for (const Screen &screen : layout.screens())
            QCOMPARE(layout.nativeRect(screen.frame), screen.nativeFrame);
    }
}

void GeometryTest::thePointOfAPixelIsInTheFrameOfItsScreen()
{
    const ScreenLayout layout = mixedScales();
    for (const Screen &screen : layout.screens()) {
        const QRect &native = screen.nativeFrame;
        for (const QPoint corner :
             {native.topLeft(), native.topRight(), native.bottomLeft(), native.bottomRight()})
            QVERIFY(contains(screen.frame, layout.pointOfPixel(corner)));
    }
    QCOMPARE(layout.pointOfPixel({0, 0}), QPointF(0.5, 1079.5));
    QCOMPARE(layout.pointOfPixel({1920, 0}), QPointF(1920.25, 1079.75));
}

void GeometryTest::effectsAreCentredOnThePixelUnderThePointer()
{
    const ScreenLayout layout = mixedScales();
    for (const QPoint pixel :
         {QPoint(0, 0), QPoint(1919, 500), QPoint(1920, 500), QPoint(4000, 2159), QPoint(700, 1500)}) {
        const QPointF mouse = layout.pointOfPixel(pixel);
        const QRect ring = layout.nativeRect({mouse - QPointF(28, 28), QSizeF(56, 56)});
        const double scale = layout.scaleAt(mouse);
        QCOMPARE(ring.size(), QSize(int(std::ceil(56 * scale)), int(std::ceil(56 * scale))));
        QVERIFY(std::abs(ring.x() + ring.width() / 2.0 - (pixel.x() + 0.5)) <= 0.5);
        QVERIFY(std::abs(ring.y() + ring.height() / 2.0 - (pixel.y() + 0.5)) <= 0.5);
    }
}

void GeometryTest::aRectangleContainsOnlyItsLowerAndLeftEdges()
{
    const QRectF rect(10, 20, 100, 50);
    QVERIFY(contains(rect, {10, 20}));
    QVERIFY(!contains(rect, {110, 30}));
    QVERIFY(!contains(rect, {50, 70}));
    QVERIFY(contains(rect, {109.99, 69.99}));
    QVERIFY(!contains(rect, {9.99, 30}));
}

void GeometryTest::withoutScreensNothingIsScaled()
{
    const ScreenLayout layout;
    QVERIFY(layout.screens().empty());
    QCOMPARE(layout.scaleAt({5, 5}), 1.0);
    QCOMPARE(layout.nativeRect({1, 2, 3, 4}), QRect(1, 2, 3, 4));
}

void GeometryTest::aRectangleIsOnTheScreenWithMostOfIt_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QString>("screen");

    QTest::newRow("on one screen") << QRect(2000, 100, 500, 500) << "B";
    QTest::newRow("more of it on the second") << QRect(1800, 100, 241, 500) << "B";
    QTest::newRow("more of it on the first") << QRect(1800, 100, 239, 500) << "A";
    QTest::newRow("equal parts on both") << QRect(1820, 100, 200, 500) << "A";
    QTest::newRow("measured in pixels, not points") << QRect(0, 1080, 1366, 768) << "C";
    QTest::newRow("on no screen") << QRect(-900, -900, 100, 100) << "A";
    QTest::newRow("empty rectangle") << QRect() << "A";
}

void GeometryTest::aRectangleIsOnTheScreenWithMostOfIt()
{
    QFETCH(QRect, rect);
    QFETCH(QString, screen);
    QCOMPARE(mixedScales().screenHolding(rect).value().name, screen);
    QVERIFY(!ScreenLayout().screenHolding(rect));
}

void GeometryTest::aPartOfAScreenConvertsToAFrame()
{
    const ScreenLayout layout = mixedScales();
    for (const Screen &screen : layout.screens())
        QCOMPARE(ScreenLayout::frameOfPart(screen, screen.nativeFrame), screen.frame);
    const Screen &dense = layout.screens()[1];
    // The part leaves out 20 points at the top, 30 at the bottom and 40 on the left.
    QCOMPARE(ScreenLayout::frameOfPart(dense, {2000, 40, 3760, 2060}), QRectF(1960, 30, 1880, 1030));
    QVERIFY(ScreenLayout::frameOfPart(dense, {}).isEmpty());
}

REGISTER_TEST(GeometryTest)
#include "geometry_test.moc"
