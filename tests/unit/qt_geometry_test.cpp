#include "platform/x11/windows/qt_geometry.h"
#include "registered_test.h"

#include <QTest>

using namespace zeigewerk::platform;
using namespace zeigewerk::platform::x11;

namespace {

ScreenLayout threeScales()
{
    return ScreenLayout({{.name = "A", .nativeFrame = {0, 0, 1920, 1080}, .scale = 1, .frame = {}},
                         {.name = "B", .nativeFrame = {1920, 0, 3840, 2160}, .scale = 2, .frame = {}},
                         {.name = "C", .nativeFrame = {0, 1080, 1366, 768}, .scale = 1.5, .frame = {}}});
}

} // namespace

class QtGeometryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void windowsAreCutWhereAnotherScaleBegins();
    void qtRectanglesConvertToFramesAndBack_data();
    void qtRectanglesConvertToFramesAndBack();
    void framesAreRoundedToWholePointsForQt();
};

void QtGeometryTest::windowsAreCutWhereAnotherScaleBegins()
{
    const ScreenLayout layout = threeScales();
    const Screen &left = layout.screens().at(0);
    const auto cut = [&](const QRect &window) { return cutToScale(layout, left, window); };
    // The middle of the window is on its own screen.
    QCOMPARE(cut({1800, 100, 240, 32}), QRect(1800, 100, 240, 32));
    // The middle is on the other screen.
    QCOMPARE(cut({1801, 100, 340, 32}), QRect(1801, 100, 119, 32));
    QCOMPARE(cut({1920, 100, 340, 32}), QRect(1919, 100, 1, 32));
    // The middle is on no screen; the window touches the other screen, or none.
    QCOMPARE(cut({1801, -20, 340, 32}), QRect(1801, -20, 119, 32));
    QCOMPARE(cut({1919, -200, 340, 32}), QRect(1919, -200, 340, 32));
}

void QtGeometryTest::qtRectanglesConvertToFramesAndBack_data()
{
    QTest::addColumn<ScreenLayout>("layout");
    QTest::addColumn<QRect>("qtRect");
    QTest::addColumn<QRectF>("frame");

    const auto row = [](const char *name, const ScreenLayout &layout, const QRect &qtRect,
                        const QRectF &frame) { QTest::newRow(name) << layout << qtRect << frame; };
    const ScreenLayout mixed = threeScales();
    row("upper left corner of the primary", mixed, {0, 0, 151, 477}, {0, 603, 151, 477});
    row("lower right corner of the primary", mixed, {1769, 603, 151, 477}, {1769, 0, 151, 477});
    // Qt's screens, too, start at their first pixel: 1920 pixels are 1920 points on the primary.
    row("upper left corner of a screen of scale 2", mixed, {1920, 0, 151, 477}, {1920, 603, 151, 477});
    row("lower right corner of a screen of scale 2", mixed, {3689, 603, 151, 477}, {3689, 0, 151, 477});
    row("below the primary", mixed, {10, 1100, 151, 477}, {10, -497, 151, 477});
    row("outside of every screen", mixed, {-500, -900, 100, 50}, {-500, 1930, 100, 50});

    const ScreenLayout primaryOnTheRight(
        {{.name = "A", .nativeFrame = {1600, 200, 2560, 1440}, .scale = 2, .frame = {}},
         {.name = "B", .nativeFrame = {0, 0, 1600, 900}, .scale = 1, .frame = {}}});
    row("the primary is not at the origin", primaryOnTheRight, {1600, 820, 200, 100}, {0, 0, 200, 100});
    row("left of such a primary", primaryOnTheRight, {0, 0, 200, 100}, {-1600, 820, 200, 100});
}

void QtGeometryTest::qtRectanglesConvertToFramesAndBack()
{
    QFETCH(ScreenLayout, layout);
    QFETCH(QRect, qtRect);
    QFETCH(QRectF, frame);
    QCOMPARE(frameOfQtRect(layout, qtRect), frame);
    QCOMPARE(qtRectOf(layout, frame), qtRect);
}

void QtGeometryTest::framesAreRoundedToWholePointsForQt()
{
    const ScreenLayout layout = threeScales();
    QCOMPARE(qtRectOf(layout, {10.4, 20.4, 100, 50}), QRect(10, 1010, 100, 50));
    QCOMPARE(qtRectOf(layout, {10.6, 20.6, 100, 50}), QRect(11, 1009, 100, 50));
}

REGISTER_TEST(QtGeometryTest)
#include "qt_geometry_test.moc"
