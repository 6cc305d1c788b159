// The place of the toolbar: by default, after a drag, and after a restart.

#include "controller_fixture.h"
#include "registered_test.h"
#include "toolbar/panel.h"
#include "toolbar/toolbar_frame.h"
#include "toolbar/toolbar_placement.h"

#include <QTest>

#include <array>

using namespace zeigewerk;
using test::Controller;
using test::twoScreens;

namespace {

const QSizeF kSize(151, 477);

QRectF frameOf(Controller &controller)
{
    return controller.app().toolbar()->window->frame();
}

std::vector<platform::Screen> onlyFirstScreen()
{
    return {twoScreens().front()};
}

void drag(Controller &controller, QPointF from, const std::vector<QPointF> &path)
{
    ToolbarPlacement &placement = *controller.app().toolbar()->placement;
    placement.dragBegan(from - frameOf(controller).topLeft());
    for (const QPointF point : path) {
        controller.desktop.setMouseLocation(point);
        placement.dragMoved(point - frameOf(controller).topLeft());
    }
    placement.dragEnded();
}

} // namespace

class ToolbarPlacementTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itsDefaultPlaceIsAtTheRightEdge();
    void itsDefaultPlaceAvoidsDocks();
    void itsDefaultPlaceIsOnTheMainScreen();
    void withoutAScreenItStaysWhereItIs();
    void aDragMovesItAndSavesItsPlace();
    void theDefaultPlaceIsNotSaved();
    void aSavedFrameMovesItButNeverResizesIt();
    void anInvalidSavedFrameIsIgnored_data();
    void anInvalidSavedFrameIsIgnored();
    void anUnreachablePlaceIsBroughtIntoView_data();
    void anUnreachablePlaceIsBroughtIntoView();
    void bringingItIntoViewIsNotSaved();
    void itComesBackWithItsScreen();
    void withoutADragItStaysOnItsScreenWhenScreensChange();
    void withoutADragItComesBackWithItsScreen();
    void ifDocksLeaveNothingItIsPlacedOnTheWholeScreen();
    void savedFramesSurviveARoundTrip();
    void draggingByTheBackgroundMovesIt();
    void aPressWithoutAMoveIsNoDrag();
    void hidingItEndsTheDrag();
};

void ToolbarPlacementTest::itsDefaultPlaceIsAtTheRightEdge()
{
    Controller controller;
    // Centred except for half a point, since windows are placed at whole points.
    QCOMPARE(frameOf(controller), QRectF(QPointF(1000 - 151 - 24, 161), kSize));
}

void ToolbarPlacementTest::itsDefaultPlaceAvoidsDocks()
{
    Controller controller;
    // The docks take 40 points at the bottom of the screen and 60 at its right.
    controller.desktop.setDocks({0, 0, 60, 40});
    QCOMPARE(frameOf(controller), QRectF(QPointF(940 - 151 - 24, 181), kSize));
}

void ToolbarPlacementTest::itsDefaultPlaceIsOnTheMainScreen()
{
    Controller controller(twoScreens());
    controller.desktop.setMainScreen(1);
    // The upper edges of the screens are aligned, so the second screen begins 200 points up.
    QCOMPARE(frameOf(controller).topLeft(), QPointF(1800 - 151 - 24, 261));
}

void ToolbarPlacementTest::withoutAScreenItStaysWhereItIs()
{
    Controller controller(std::vector<platform::Screen>{});
    QCOMPARE(frameOf(controller).topLeft(), QPointF(0, 0));
}

void ToolbarPlacementTest::aDragMovesItAndSavesItsPlace()
{
    Controller controller(twoScreens());
    const QPointF before = frameOf(controller).topLeft();
    drag(controller, {900, 400}, {{880, 390}, {500, 300}});
    QCOMPARE(frameOf(controller).topLeft(), before + QPointF(-400, -100));
    const auto saved = SavedFrame::fromString(*controller.defaults.stringForKey(kToolbarFrameKey));
    QVERIFY(saved);
    QCOMPARE(saved->frame, frameOf(controller));
    QCOMPARE(saved->screenName, QStringLiteral("A"));

    drag(controller, {500, 300}, {{1300, 400}});
    QCOMPARE(SavedFrame::fromString(*controller.defaults.stringForKey(kToolbarFrameKey))->screenName,
             QStringLiteral("B"));
}

void ToolbarPlacementTest::theDefaultPlaceIsNotSaved()
{
    Controller controller;
    frameOf(controller);
    controller.desktop.changeScreens(twoScreens());
    QVERIFY(!controller.defaults.stringForKey(kToolbarFrameKey));
}

void ToolbarPlacementTest::aSavedFrameMovesItButNeverResizesIt()
{
    Controller controller;
    controller.defaults.setString(kToolbarFrameKey, QStringLiteral("100 200 999 111 A"));
    QCOMPARE(frameOf(controller), QRectF(QPointF(100, 200), kSize));
}

void ToolbarPlacementTest::anInvalidSavedFrameIsIgnored_data()
{
    QTest::addColumn<QString>("text");
    const std::array texts = {"",
                              "garbage",
                              "1 2 3 4",
                              "1 2 3 x A",
                              "nan 2 3 4 A",
                              "1 inf 3 4 A",
                              "1e300 2 3 4 A",
                              "1,5 2 3 4 A",
                              "@Rect(1 2 3 4)",
                              "1  2 3 4 A"};
    for (const char *text : texts)
        QTest::newRow(text) << QString::fromLatin1(text);
}

void ToolbarPlacementTest::anInvalidSavedFrameIsIgnored()
{
    QFETCH(QString, text);
    QVERIFY(!SavedFrame::fromString(text));
    Controller controller;
    controller.defaults.setString(kToolbarFrameKey, text);
    QCOMPARE(frameOf(controller).topLeft(), QPointF(1000 - 151 - 24, 161));
}

void ToolbarPlacementTest::anUnreachablePlaceIsBroughtIntoView_data()
{
    QTest::addColumn<QString>("saved");
    QTest::addColumn<QPointF>("place");
    // A table, one row per line.
    // clang-format off
    QTest::newRow("left of every screen")       << "-500 100 151 477 A"  << QPointF(0, 100);
    QTest::newRow("on a screen that is gone")   << "5000 5000 151 477 C" << QPointF(1000 - 151, 800 - 477);
    QTest::newRow("below its screen")           << "1200 -900 151 477 B" << QPointF(1200, 200);
    QTest::newRow("too little to grab") << "960 100 151 477 Z"   << QPointF(1000 - 151, 100);
    QTest::newRow("enough to grab")     << "1750 300 151 477 B"  << QPointF(1750, 300);
    QTest::newRow("partly below, within reach") << "300 -400 151 477 A"  << QPointF(300, -400);
    // clang-format on
}

void ToolbarPlacementTest::anUnreachablePlaceIsBroughtIntoView()
{
    QFETCH(QString, saved);
    QFETCH(QPointF, place);
    // A saved place on screen "Z" is tested with the first screen only.
    std::vector<platform::Screen> screens = twoScreens();
    Controller controller(saved.endsWith(QLatin1Char('Z')) ? onlyFirstScreen() : screens);
    controller.defaults.setString(kToolbarFrameKey, saved);
    QCOMPARE(frameOf(controller).topLeft(), place);
}

void ToolbarPlacementTest::bringingItIntoViewIsNotSaved()
{
    Controller controller;
    const QString saved = QStringLiteral("5000 5000 151 477 C");
    controller.defaults.setString(kToolbarFrameKey, saved);
    frameOf(controller);
    QCOMPARE(controller.defaults.stringForKey(kToolbarFrameKey), std::optional(saved));
}

void ToolbarPlacementTest::itComesBackWithItsScreen()
{
    Controller controller(twoScreens());
    frameOf(controller);
    drag(controller, {900, 400}, {{1400, 450}});
    const QPointF left = frameOf(controller).topLeft();
    controller.desktop.changeScreens(onlyFirstScreen());
    QVERIFY(QRectF(0, 0, 1000, 800).contains(frameOf(controller)));
    controller.desktop.changeScreens(twoScreens());
    QCOMPARE(frameOf(controller).topLeft(), left);
}

void ToolbarPlacementTest::withoutADragItStaysOnItsScreenWhenScreensChange()
{
    Controller controller(twoScreens());
    const QPointF first = frameOf(controller).topLeft();
    // The toolbar does not follow the keyboard focus to the other screen.
    controller.desktop.setMainScreen(1);
    controller.desktop.changeScreens(twoScreens());
    QCOMPARE(frameOf(controller).topLeft(), first);
}

void ToolbarPlacementTest::withoutADragItComesBackWithItsScreen()
{
    Controller controller(twoScreens());
    controller.desktop.setMainScreen(1);
    const QPointF first = frameOf(controller).topLeft();
    controller.desktop.setMainScreen(0);
    controller.desktop.changeScreens(onlyFirstScreen());
    QVERIFY(QRectF(0, 0, 1000, 800).contains(frameOf(controller)));
    controller.desktop.changeScreens(twoScreens());
    QCOMPARE(frameOf(controller).topLeft(), first);
}

void ToolbarPlacementTest::ifDocksLeaveNothingItIsPlacedOnTheWholeScreen()
{
    Controller controller;
    controller.desktop.setDocks({0, 0, 1000, 0});
    QCOMPARE(frameOf(controller).topLeft(), QPointF(1000 - 151 - 24, 161));
}

void ToolbarPlacementTest::savedFramesSurviveARoundTrip()
{
    const SavedFrame frame{.frame = {-1920.5, 33, 151, 477}, .screenName = QStringLiteral("My Screen 2")};
    const auto read = SavedFrame::fromString(frame.toString());
    QVERIFY(read);
    QCOMPARE(read->frame, frame.frame);
    QCOMPARE(read->screenName, frame.screenName);
}

void ToolbarPlacementTest::draggingByTheBackgroundMovesIt()
{
    Controller controller;
    const QPointF before = frameOf(controller).topLeft();
    Panel &panel = *controller.app().toolbar()->panel;
    const QPoint grip = panel.frameRect().topLeft() + QPoint(5, 60);
    // The middle of the pressed pixel. When the press is handled, the pointer is already far away.
    const QPointF pressed = before + QPointF(5.5, 477 - 60.5);
    controller.desktop.setMouseLocation({0, 0});
    QTest::mousePress(&panel, Qt::LeftButton, {}, grip);
    QCOMPARE(frameOf(controller).topLeft(), before);
    controller.desktop.setMouseLocation(pressed + QPointF(-20, -30));
    QTest::mouseMove(&panel, grip + QPoint(-20, 30));
    QCOMPARE(frameOf(controller).topLeft(), before + QPointF(-20, -30));
    QVERIFY(!controller.defaults.stringForKey(kToolbarFrameKey));
    QTest::mouseRelease(&panel, Qt::LeftButton, {}, grip);
    QVERIFY(controller.defaults.stringForKey(kToolbarFrameKey));
    // Without the button, the pointer does not move the toolbar.
    controller.desktop.setMouseLocation({100, 100});
    QTest::mouseMove(&panel, grip);
    QCOMPARE(frameOf(controller).topLeft(), before + QPointF(-20, -30));
}

void ToolbarPlacementTest::aPressWithoutAMoveIsNoDrag()
{
    Controller controller;
    const QPointF before = frameOf(controller).topLeft();
    drag(controller, {900, 400}, {});
    drag(controller, {900, 400}, {{900, 400}});
    QCOMPARE(frameOf(controller).topLeft(), before);
    QVERIFY(!controller.defaults.stringForKey(kToolbarFrameKey));
}

void ToolbarPlacementTest::hidingItEndsTheDrag()
{
    Controller controller;
    Panel &panel = *controller.app().toolbar()->panel;
    const QPointF before = frameOf(controller).topLeft();
    QTest::mousePress(&panel, Qt::LeftButton, {}, panel.frameRect().topLeft() + QPoint(5, 60));
    controller.desktop.setMouseLocation(before + QPointF(105.5, 477 - 60.5));
    QTest::mouseMove(&panel, panel.frameRect().center());
    controller.app().toggleToolbar();
    // The place that it had reached is saved …
    const QPointF left = before + QPointF(100, 0);
    QCOMPARE(SavedFrame::fromString(*controller.defaults.stringForKey(kToolbarFrameKey))->frame.topLeft(),
             left);
    // … and later moves of the pointer do not move it.
    controller.app().toggleToolbar();
    controller.desktop.setMouseLocation({100, 100});
    QTest::mouseMove(&panel, panel.frameRect().center());
    QCOMPARE(frameOf(controller).topLeft(), left);
}

REGISTER_TEST(ToolbarPlacementTest)
#include "toolbar_placement_test.moc"
