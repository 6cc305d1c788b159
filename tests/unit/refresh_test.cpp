#include "commands/hot_key_table.h"
#include "controller_fixture.h"
#include "registered_test.h"

#include <QTest>

using namespace zeigewerk;
using platform::SurfaceRole;
using test::Controller;

class RefreshTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theStepsOfARefreshAreInOrder_data();
    void theStepsOfARefreshAreInOrder();
    void theOverlayUnderThePointerGetsTheKeyboard_data();
    void theOverlayUnderThePointerGetsTheKeyboard();
    void withoutScreensNothingHappens();
    void escIsRegisteredOnceAndReleasedWithTheSpotlight();
    void escIsTriedAgainAtTheNextRefresh();
    void everyCanvasGetsThePointerPosition();
    void theRingStaysCentredOnThePointer();
    void theRingIsRepaintedAtTheScaleOfItsNewScreen();
    void theRingIsCreatedOnceAndKept();
    void theSpotlightFollowsThePointerByItself();
    void followingStopsOnceSpotlightAndRingAreOff();
    void aStrokeInProgressIsDiscardedWhenDrawingEnds();
    void aStrokeInProgressSurvivesPinningAndIsFinishedByTheRelease();
};

void RefreshTest::theStepsOfARefreshAreInOrder_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QStringList>("steps");

    const auto row = [](const char *name, const char *before, const char *operation, const char *steps) {
        QTest::newRow(name) << QString(before) << QString(operation) << QString(steps).split("; ");
    };
    row("drawing on", "", "d",
        "overlay 0: take the mouse; overlay 1: take the mouse; overlay 1: order front; activate; "
        "overlay 0: order front; overlay 0: make key; toolbar 0: order front");
    row("drawing off", "d", "d",
        "overlay 0: ignore the mouse; overlay 1: ignore the mouse; deactivate; "
        "overlay 0: order out; overlay 1: order out");
    row("pin", "d", "p",
        "overlay 0: ignore the mouse; overlay 1: ignore the mouse; deactivate; "
        "overlay 0: order front; overlay 1: order front");
    row("spotlight", "", "s",
        "overlay 0: ignore the mouse; overlay 1: ignore the mouse; deactivate; "
        "overlay 0: order front; overlay 1: order front; hot key 99: registered");
    row("ring with the spotlight on", "s", "r",
        "overlay 0: ignore the mouse; overlay 1: ignore the mouse; deactivate; "
        "overlay 0: order front; overlay 1: order front; "
        "effect 0: made; effect 0: ignore the mouse; effect 0: move to 472, 372; effect 0: order front");
    row("spotlight off with the ring on", "sr", "s",
        "overlay 0: ignore the mouse; overlay 1: ignore the mouse; deactivate; "
        "overlay 0: order out; overlay 1: order out; "
        "effect 0: order front; effect 0: move to 472, 372; hot key 99: released");
}

void RefreshTest::theStepsOfARefreshAreInOrder()
{
    QFETCH(QString, before);
    QFETCH(QString, operation);
    QFETCH(QStringList, steps);
    Controller controller(test::twoScreens());
    controller.desktop.setMouseLocation({500, 400});
    controller.perform(before);
    controller.desktop.takeLog();
    controller.perform(operation);
    QCOMPARE(controller.desktop.takeLog(), steps);
}

void RefreshTest::theOverlayUnderThePointerGetsTheKeyboard_data()
{
    QTest::addColumn<QPointF>("mouse");
    QTest::addColumn<QString>("key");

    // A table, one row per line.
    // clang-format off
    QTest::newRow("on the first screen")               << QPointF(500, 400)    << "overlay 0: make key";
    QTest::newRow("on the second screen")              << QPointF(1400, 500)   << "overlay 1: make key";
    QTest::newRow("a left edge belongs to the screen") << QPointF(1000, 500)   << "overlay 1: make key";
    QTest::newRow("and so does a lower edge")          << QPointF(1400, 200)   << "overlay 1: make key";
    QTest::newRow("below the second, on none")         << QPointF(1400, 100)   << "overlay 0: make key";
    QTest::newRow("far away")                          << QPointF(-5000, 9000) << "overlay 0: make key";
    // clang-format on
}

void RefreshTest::theOverlayUnderThePointerGetsTheKeyboard()
{
    QFETCH(QPointF, mouse);
    QFETCH(QString, key);
    Controller controller(test::twoScreens());
    controller.desktop.setMouseLocation(mouse);
    controller.app().toggleDraw();
    QCOMPARE(controller.desktop.takeLog().filter("make key"), QStringList{key});
}

void RefreshTest::withoutScreensNothingHappens()
{
    Controller controller(std::vector<platform::Screen>{});
    controller.perform(QStringLiteral("dsrp"));
    QVERIFY(controller.app().overlays().empty());
    QVERIFY(controller.app().pinnedOn());
}

void RefreshTest::escIsRegisteredOnceAndReleasedWithTheSpotlight()
{
    Controller controller;
    controller.app().toggleSpot();
    controller.app().refreshAll();
    controller.app().refreshAll();
    QCOMPARE(controller.desktop.hotKeys().timesRegistered(kEscHotKey.id()), 1);

    controller.desktop.hotKeys().press(kEscHotKey.id());
    QVERIFY(!controller.app().spotlightOn());
    QCOMPARE(controller.desktop.hotKeys().timesRegistered(kEscHotKey.id()), 0);
}

void RefreshTest::escIsTriedAgainAtTheNextRefresh()
{
    Controller controller;
    controller.desktop.hotKeys().refuse(kEscHotKey.id());
    controller.app().toggleSpot();
    QCOMPARE(controller.desktop.hotKeys().timesRegistered(kEscHotKey.id()), 0);
    controller.desktop.hotKeys().refuseNone();
    controller.app().refreshAll();
    QCOMPARE(controller.desktop.hotKeys().timesRegistered(kEscHotKey.id()), 1);
}

void RefreshTest::everyCanvasGetsThePointerPosition()
{
    Controller controller(test::twoScreens());
    controller.desktop.setMouseLocation({1100, 300});
    controller.app().toggleSpot();
    QCOMPARE(controller.view(0).cursorPoint(), QPointF(1100, 300));
    QCOMPARE(controller.view(1).cursorPoint(), QPointF(100, 100));
}

void RefreshTest::theRingStaysCentredOnThePointer()
{
    Controller controller;
    controller.desktop.setMouseLocation({300, 200});
    controller.app().toggleRing();
    const platform::RecordingSurface &ring = *controller.desktop.surfaces(SurfaceRole::Effect).at(0);
    QCOMPARE(ring.frame(), QRectF(272, 172, 56, 56));
    controller.desktop.setMouseLocation({0, 0});
    controller.app().followPointer();
    QCOMPARE(ring.frame(), QRectF(-28, -28, 56, 56));
}

void RefreshTest::theRingIsRepaintedAtTheScaleOfItsNewScreen()
{
    Controller controller({{.name = "A", .nativeFrame = {0, 0, 1000, 800}, .scale = 1, .frame = {}},
                           {.name = "B", .nativeFrame = {1000, 0, 1600, 1200}, .scale = 2, .frame = {}}});
    controller.desktop.setMouseLocation({300, 200});
    controller.app().toggleRing();
    platform::RecordingSurface &ring = *controller.desktop.surfaces(SurfaceRole::Effect).at(0);
    QVERIFY(ring.display());
    QCOMPARE(ring.image().size(), QSize(56, 56));
    const qint64 painted = ring.paintedPixels();

    controller.desktop.setMouseLocation({310, 200});
    controller.app().followPointer();
    QVERIFY(!ring.display());
    QCOMPARE(ring.paintedPixels(), painted);

    controller.desktop.setMouseLocation({1200, 400});
    controller.app().followPointer();
    QVERIFY(ring.display());
    QCOMPARE(ring.image().size(), QSize(112, 112));
    // The stroke is 24 points from the middle, the fill is faint, and the corner is clear.
    QCOMPARE(qAlpha(ring.image().pixel(56 + 48, 56)), qRound(0.9 * 255));
    QCOMPARE(qAlpha(ring.image().pixel(56, 56)), qRound(0.2 * 255));
    QCOMPARE(qAlpha(ring.image().pixel(2, 2)), 0);
}

void RefreshTest::theRingIsCreatedOnceAndKept()
{
    Controller controller;
    controller.perform(QStringLiteral("rrr"));
    QCOMPARE(controller.desktop.surfaces(SurfaceRole::Effect).size(), 1U);
    QVERIFY(controller.desktop.surfaces(SurfaceRole::Effect).at(0)->isVisible());
    controller.app().toggleRing();
    QCOMPARE(controller.desktop.surfaces(SurfaceRole::Effect).size(), 1U);
    QVERIFY(!controller.desktop.surfaces(SurfaceRole::Effect).at(0)->isVisible());
}

void RefreshTest::theSpotlightFollowsThePointerByItself()
{
    Controller controller;
    controller.app().toggleSpot();
    controller.desktop.setMouseLocation({640, 480});
    QTRY_COMPARE(controller.view().cursorPoint(), QPointF(640, 480));
}

void RefreshTest::followingStopsOnceSpotlightAndRingAreOff()
{
    Controller controller;
    controller.perform(QStringLiteral("sr"));
    QVERIFY(controller.app().isFollowing());
    controller.app().toggleSpot();
    QVERIFY(controller.app().isFollowing());
    controller.app().toggleRing();
    QVERIFY(!controller.app().isFollowing());
}

void RefreshTest::aStrokeInProgressIsDiscardedWhenDrawingEnds()
{
    Controller controller;
    controller.app().toggleDraw();
    controller.view().mouseDown({{10, 10}, {}});
    controller.view().mouseDragged({{20, 20}, {}});
    controller.app().toggleDraw();
    QVERIFY(!controller.view().current());
    controller.view().mouseUp({{20, 20}, {}});
    QVERIFY(controller.view().shapes().empty());
    QVERIFY(controller.app().shapeOrder().empty());
}

void RefreshTest::aStrokeInProgressSurvivesPinningAndIsFinishedByTheRelease()
{
    Controller controller;
    controller.app().toggleDraw();
    controller.view().mouseDown({{10, 10}, {}});
    controller.app().togglePin();
    controller.view().mouseDragged({{20, 20}, {}});
    controller.view().mouseUp({{20, 20}, {}});
    QCOMPARE(controller.view().shapes().size(), 1U);
    QCOMPARE(controller.view().shapes().front().points.size(), 2U);
    QCOMPARE(controller.app().shapeOrder().size(), 1U);
}

REGISTER_TEST(RefreshTest)
#include "refresh_test.moc"
