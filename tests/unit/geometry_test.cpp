#include "platform/geometry.h"
#include "platform/x11/windows/qt_geometry.h"
#include "registered_test.h"

#include <QTest>

#include <cmath>
#include <limits>
#include <random>

using namespace zeigewerk::platform;
using x11::cutToScale;
using x11::frameOfQtRect;
using x11::qtRectOf;

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
    void framesAreYUpFromThePrimaryScreen();
    void thePrimaryScreenNeedNotLieAtTheOrigin();
    void mirroredScreensAreOne();
    void aScreensFrameIsItsPixelsAgain_data();
    void aScreensFrameIsItsPixelsAgain();
    void everyPixelIsOnTheScreenThatHoldsIt();
    void effectsAreCentredOnThePixelUnderThePointer();
    void aWindowIsCutWhereAnotherScaleBegins();
    void aRectangleHoldsItsLowerLeftEdgesOnly();
    void viewPointsMakeARoundTrip_data();
    void viewPointsMakeARoundTrip();
    void damageIsWholePixelsAndOneMore();
    void damageBeyondTheSurfaceIsClipped_data();
    void damageBeyondTheSurfaceIsClipped();
    void thePainterMapsLikeThePoints();
    void withoutScreensNothingIsScaled();
    void qtRectanglesMakeARoundTrip_data();
    void qtRectanglesMakeARoundTrip();
    void framesAreRoundedToWholePointsForQt();
    void aRectangleIsOnTheScreenThatHoldsMostOfIt_data();
    void aRectangleIsOnTheScreenThatHoldsMostOfIt();
    void aPartOfAScreenHasItsFrame();
};

void GeometryTest::framesAreYUpFromThePrimaryScreen()
{
    const ScreenLayout layout = mixedScales();
    QCOMPARE(layout.screens()[0].frame, QRectF(0, 0, 1920, 1080));
    QCOMPARE(layout.screens()[1].frame, QRectF(1920, 0, 1920, 1080));
    QCOMPARE(layout.screens()[2].frame, QRectF(0, -512, 1366 / 1.5, 512));
}

void GeometryTest::thePrimaryScreenNeedNotLieAtTheOrigin()
{
    const ScreenLayout layout({{.name = "B", .nativeFrame = {800, 200, 1000, 500}, .scale = 1, .frame = {}},
                               {.name = "A", .nativeFrame = {0, 0, 800, 600}, .scale = 1, .frame = {}}});
    QCOMPARE(layout.screens()[0].frame, QRectF(0, 0, 1000, 500));
    QCOMPARE(layout.screens()[1].frame, QRectF(-800, 100, 800, 600));
}

void GeometryTest::mirroredScreensAreOne()
{
    const ScreenLayout layout({{.name = "A", .nativeFrame = {0, 0, 800, 600}, .scale = 1, .frame = {}},
                               {.name = "B", .nativeFrame = {0, 0, 800, 600}, .scale = 2, .frame = {}},
                               {.name = "C", .nativeFrame = {0, 0, 800, 601}, .scale = 1, .frame = {}}});
    QCOMPARE(layout.screens().size(), 2U);
    QCOMPARE(layout.screens()[0].name, QString("A"));
    QCOMPARE(layout.screens()[1].name, QString("C"));
}

void GeometryTest::aScreensFrameIsItsPixelsAgain_data()
{
    QTest::addColumn<double>("scale");
    for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0})
        QTest::addRow("scale %g", scale) << scale;
}

void GeometryTest::aScreensFrameIsItsPixelsAgain()
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

void GeometryTest::everyPixelIsOnTheScreenThatHoldsIt()
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

void GeometryTest::aWindowIsCutWhereAnotherScaleBegins()
{
    const ScreenLayout layout = mixedScales();
    const Screen &left = layout.screens().at(0);
    const auto cut = [&](const QRect &window) { return cutToScale(layout, left, window); };
    // Its middle is on its screen, on another one, and on none beside another one and beside none.
    QCOMPARE(cut({1800, 100, 240, 32}), QRect(1800, 100, 240, 32));
    QCOMPARE(cut({1801, 100, 340, 32}), QRect(1801, 100, 119, 32));
    QCOMPARE(cut({1801, -20, 340, 32}), QRect(1801, -20, 119, 32));
    QCOMPARE(cut({1919, -200, 340, 32}), QRect(1919, -200, 340, 32));
    QCOMPARE(cut({1920, 100, 340, 32}), QRect(1919, 100, 1, 32));
}

void GeometryTest::aRectangleHoldsItsLowerLeftEdgesOnly()
{
    const QRectF rect(10, 20, 100, 50);
    QVERIFY(contains(rect, {10, 20}));
    QVERIFY(!contains(rect, {110, 30}));
    QVERIFY(!contains(rect, {50, 70}));
    QVERIFY(contains(rect, {109.99, 69.99}));
    QVERIFY(!contains(rect, {9.99, 30}));
}

void GeometryTest::viewPointsMakeARoundTrip_data()
{
    aScreensFrameIsItsPixelsAgain_data();
}

void GeometryTest::viewPointsMakeARoundTrip()
{
    QFETCH(double, scale);
    const ViewGeometry geometry(QSize(1366, 768), scale);
    std::mt19937 random(1);
    std::uniform_real_distribution<double> coordinate(-2000, 2000);
    for (int i = 0; i < 1000; ++i) {
        const QPointF point(coordinate(random), coordinate(random));
        const QPointF back = geometry.toView(geometry.toPixels(point));
        QVERIFY(std::hypot(back.x() - point.x(), back.y() - point.y()) < 1e-9);
    }
    QCOMPARE(geometry.toPixels({0, 0}), QPointF(0, 768));
    QCOMPARE(geometry.toView(QPointF(0, 0)), QPointF(0, 768 / scale));
}

void GeometryTest::damageIsWholePixelsAndOneMore()
{
    const ViewGeometry single(QSize(1000, 800), 1);
    QCOMPARE(single.damagedPixels({10, 20, 30, 40}), QRect(9, 739, 32, 42));
    QCOMPARE(single.damagedPixels({10.2, 20.7, 0.1, 0.1}), QRect(9, 778, 3, 3));
    const ViewGeometry doubled(QSize(1000, 800), 2);
    QCOMPARE(doubled.damagedPixels({10, 20, 30, 40}), QRect(19, 679, 62, 82));
    const QRect pixels(100, 50, 20, 10);
    QVERIFY(doubled.damagedPixels(doubled.toView(pixels)).contains(pixels));
}

void GeometryTest::damageBeyondTheSurfaceIsClipped_data()
{
    QTest::addColumn<QRectF>("damage");
    QTest::addColumn<QRect>("expected");

    const double infinity = std::numeric_limits<double>::infinity();
    QTest::newRow("left of it") << QRectF(-500, 10, 100, 100) << QRect();
    QTest::newRow("far away") << QRectF(1e12, 1e12, 10, 10) << QRect();
    QTest::newRow("huge") << QRectF(-1e12, -1e12, 2e12, 2e12) << QRect(0, 0, 1000, 800);
    QTest::newRow("over a corner") << QRectF(-10, -10, 20, 20) << QRect(0, 789, 11, 11);
    QTest::newRow("endless") << QRectF(0, 0, infinity, infinity) << QRect(0, 0, 1000, 800);
}

void GeometryTest::damageBeyondTheSurfaceIsClipped()
{
    QFETCH(QRectF, damage);
    QFETCH(QRect, expected);
    const QRect pixels = ViewGeometry(QSize(1000, 800), 1).damagedPixels(damage);
    if (expected.isEmpty())
        QVERIFY(pixels.isEmpty());
    else
        QCOMPARE(pixels, expected);
}

void GeometryTest::thePainterMapsLikeThePoints()
{
    const ViewGeometry geometry(QSize(640, 480), 1.25);
    for (const QPointF point : {QPointF(0, 0), QPointF(100, 50), QPointF(512, 384)})
        QCOMPARE(geometry.painterTransform().map(point), geometry.toPixels(point));
}

void GeometryTest::withoutScreensNothingIsScaled()
{
    const ScreenLayout layout;
    QVERIFY(layout.screens().empty());
    QCOMPARE(layout.scaleAt({5, 5}), 1.0);
    QCOMPARE(layout.nativeRect({1, 2, 3, 4}), QRect(1, 2, 3, 4));
}

void GeometryTest::qtRectanglesMakeARoundTrip_data()
{
    QTest::addColumn<ScreenLayout>("layout");
    QTest::addColumn<QRect>("qtRect");
    QTest::addColumn<QRectF>("frame");

    QTest::newRow("upper left corner of the primary")
        << mixedScales() << QRect(0, 0, 151, 477) << QRectF(0, 603, 151, 477);
    QTest::newRow("lower right corner of the primary")
        << mixedScales() << QRect(1769, 603, 151, 477) << QRectF(1769, 0, 151, 477);
    // Qt, too, has a screen begin at its first pixel: 1920 pixels are 1920 points on the primary.
    QTest::newRow("upper left corner of the second, twice as dense")
        << mixedScales() << QRect(1920, 0, 151, 477) << QRectF(1920, 603, 151, 477);
    QTest::newRow("lower right corner of the second")
        << mixedScales() << QRect(3689, 603, 151, 477) << QRectF(3689, 0, 151, 477);
    QTest::newRow("below the primary")
        << mixedScales() << QRect(10, 1100, 151, 477) << QRectF(10, -497, 151, 477);
    QTest::newRow("outside of every screen")
        << mixedScales() << QRect(-500, -900, 100, 50) << QRectF(-500, 1930, 100, 50);

    const ScreenLayout primaryOnTheRight(
        {{.name = "A", .nativeFrame = {1600, 200, 2560, 1440}, .scale = 2, .frame = {}},
         {.name = "B", .nativeFrame = {0, 0, 1600, 900}, .scale = 1, .frame = {}}});
    QTest::newRow("the primary's origin is not that of the desktop")
        << primaryOnTheRight << QRect(1600, 820, 200, 100) << QRectF(0, 0, 200, 100);
    QTest::newRow("left of such a primary")
        << primaryOnTheRight << QRect(0, 0, 200, 100) << QRectF(-1600, 820, 200, 100);
}

void GeometryTest::qtRectanglesMakeARoundTrip()
{
    QFETCH(ScreenLayout, layout);
    QFETCH(QRect, qtRect);
    QFETCH(QRectF, frame);
    QCOMPARE(frameOfQtRect(layout, qtRect), frame);
    QCOMPARE(qtRectOf(layout, frame), qtRect);
}

void GeometryTest::framesAreRoundedToWholePointsForQt()
{
    const ScreenLayout layout = mixedScales();
    QCOMPARE(qtRectOf(layout, {10.4, 20.4, 100, 50}), QRect(10, 1010, 100, 50));
    QCOMPARE(qtRectOf(layout, {10.6, 20.6, 100, 50}), QRect(11, 1009, 100, 50));
}

void GeometryTest::aRectangleIsOnTheScreenThatHoldsMostOfIt_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QString>("screen");

    QTest::newRow("within one") << QRect(2000, 100, 500, 500) << "B";
    QTest::newRow("more of it on the second") << QRect(1800, 100, 241, 500) << "B";
    QTest::newRow("more of it on the first") << QRect(1800, 100, 239, 500) << "A";
    QTest::newRow("as much on each") << QRect(1820, 100, 200, 500) << "A";
    QTest::newRow("counted in pixels, not points") << QRect(0, 1080, 1366, 768) << "C";
    QTest::newRow("on none") << QRect(-900, -900, 100, 100) << "A";
    QTest::newRow("no rectangle at all") << QRect() << "A";
}

void GeometryTest::aRectangleIsOnTheScreenThatHoldsMostOfIt()
{
    QFETCH(QRect, rect);
    QFETCH(QString, screen);
    QCOMPARE(mixedScales().screenHolding(rect).value().name, screen);
    QVERIFY(!ScreenLayout().screenHolding(rect));
}

void GeometryTest::aPartOfAScreenHasItsFrame()
{
    const ScreenLayout layout = mixedScales();
    for (const Screen &screen : layout.screens())
        QCOMPARE(ScreenLayout::frameOfPart(screen, screen.nativeFrame), screen.frame);
    const Screen &dense = layout.screens()[1];
    // Of 1080 points 20 are taken at the top, 30 at the bottom, 40 on the left.
    QCOMPARE(ScreenLayout::frameOfPart(dense, {2000, 40, 3760, 2060}), QRectF(1960, 30, 1880, 1030));
    QVERIFY(ScreenLayout::frameOfPart(dense, {}).isEmpty());
}

REGISTER_TEST(GeometryTest)
#include "geometry_test.moc"
