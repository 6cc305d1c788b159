#include "controller_fixture.h"
#include "registered_test.h"

#include <QTest>

using namespace zeigewerk;
using test::Controller;

class OverlaysTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachScreenHasAnOverlayThatCoversIt();
    void mirroredScreensShareAnOverlay();
    void aScreenChangeDiscardsEveryDrawingAndKeepsTheModes();
    void overlaysOfRemovedScreensAreRemoved();
    void aNewOverlayKnowsThePointerAtOnceIfTheSpotlightIsOn();
    void aHiddenOverlayKeepsNoPicture();
    void showingAnEmptyCanvasPaintsNothing();
    void aNewPointOfAStrokeRepaintsOnlyItsSurroundings();
    void movingTheSpotlightRepaintsOnlyItsCircles();
};

void OverlaysTest::eachScreenHasAnOverlayThatCoversIt()
{
    Controller controller(test::twoScreens());
    QCOMPARE(controller.app().overlays().size(), 2U);
    QCOMPARE(controller.surface(0).frame(), QRectF(0, 0, 1000, 800));
    QCOMPARE(controller.surface(1).frame(), QRectF(1000, 200, 800, 600));
    QCOMPARE(controller.view(0).bounds(), QRectF(0, 0, 1000, 800));
    QCOMPARE(controller.view(1).bounds(), QRectF(0, 0, 800, 600));
}

void OverlaysTest::mirroredScreensShareAnOverlay()
{
    auto screens = test::twoScreens();
    screens[1].nativeFrame = screens[0].nativeFrame;
    Controller controller(screens);
    QCOMPARE(controller.app().overlays().size(), 1U);
}

void OverlaysTest::aScreenChangeDiscardsEveryDrawingAndKeepsTheModes()
{
    Controller controller(test::twoScreens());
    controller.app().toggleDraw();
    controller.app().setTool(Tool::arrow);
    controller.draw(controller.view(0));
    controller.draw(controller.view(1));
    controller.view(1).mouseDown({{5, 5}, {}});

    controller.desktop.changeScreens({test::twoScreens()[0]});
    QCOMPARE(controller.app().overlays().size(), 1U);
    QVERIFY(controller.view().shapes().empty());
    QVERIFY(controller.app().shapeOrder().empty());
    QVERIFY(controller.app().drawOn());
    QCOMPARE(controller.app().tool(), Tool(Tool::arrow));
    QVERIFY(controller.surface().isVisible());
    QVERIFY(!controller.surface().ignoresMouseEvents());
    controller.draw(controller.view());
    QCOMPARE(controller.view().shapes().size(), 1U);
}

void OverlaysTest::overlaysOfRemovedScreensAreRemoved()
{
    Controller controller(test::twoScreens());
    controller.app().toggleDraw();
    controller.desktop.changeScreens({});
    QVERIFY(controller.app().overlays().empty());
    QVERIFY(controller.desktop.surfaces(platform::SurfaceRole::Overlay).empty());
    controller.desktop.changeScreens(test::twoScreens());
    QCOMPARE(controller.app().overlays().size(), 2U);
    QVERIFY(controller.surface(1).isVisible());
}

void OverlaysTest::aNewOverlayKnowsThePointerAtOnceIfTheSpotlightIsOn()
{
    Controller controller;
    controller.desktop.setMouseLocation({300, 300});
    controller.app().toggleSpot();
    controller.desktop.changeScreens(test::twoScreens());
    QCOMPARE(controller.view().cursorPoint(), QPointF(300, 300));
}

void OverlaysTest::aHiddenOverlayKeepsNoPicture()
{
    Controller controller;
    controller.app().toggleDraw();
    controller.draw(controller.view());
    controller.surface().display();
    QVERIFY(!controller.surface().image().isNull());
    controller.app().toggleDraw();
    QVERIFY(controller.surface().image().isNull());
}

void OverlaysTest::showingAnEmptyCanvasPaintsNothing()
{
    Controller controller;
    controller.app().toggleDraw();
    QVERIFY(!controller.surface().display());
    QCOMPARE(controller.surface().paintedPixels(), 0);
}

void OverlaysTest::aNewPointOfAStrokeRepaintsOnlyItsSurroundings()
{
    Controller controller({{.name = {}, .nativeFrame = {0, 0, 3840, 2160}, .scale = 1, .frame = {}}});
    controller.app().toggleDraw();
    controller.view().mouseDown({{1000, 1000}, {}});
    for (int i = 1; i < 2000; ++i)
        controller.view().mouseDragged({{1000.0 + i, 1000}, {}});
    controller.surface().display();
    const qint64 before = controller.surface().paintedPixels();

    controller.view().mouseDragged({{3010, 1000}, {}});
    QVERIFY(controller.surface().display());
    // The last segment and the width of the stroke, with the pixel that antialiasing may touch on each side.
    QVERIFY(controller.surface().paintedPixels() - before <= qint64{21} * 11);
    QCOMPARE(controller.view().fullRepaints(FullRepaint::Spotlight), 0);
    QCOMPARE(controller.view().fullRepaints(FullRepaint::Whiteboard), 0);
}

void OverlaysTest::movingTheSpotlightRepaintsOnlyItsCircles()
{
    Controller controller({{.name = {}, .nativeFrame = {0, 0, 3840, 2160}, .scale = 1, .frame = {}}});
    controller.desktop.setMouseLocation({1000, 1000});
    controller.app().toggleSpot();
    controller.surface().display();
    QCOMPARE(controller.view().fullRepaints(FullRepaint::Spotlight), 1);
    const qint64 before = controller.surface().paintedPixels();

    controller.desktop.setMouseLocation({1010, 1000});
    controller.app().followPointer();
    QVERIFY(controller.surface().display());
    QCOMPARE(controller.view().fullRepaints(FullRepaint::Spotlight), 1);
    QVERIFY(controller.surface().paintedPixels() - before <= qint64{194} * 184);

    const qint64 afterwards = controller.surface().paintedPixels();
    controller.app().followPointer();
    QVERIFY(!controller.surface().display());
    QCOMPARE(controller.surface().paintedPixels(), afterwards);
}

REGISTER_TEST(OverlaysTest)
#include "overlays_test.moc"
