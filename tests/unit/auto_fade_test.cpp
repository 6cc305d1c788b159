#include "controller_fixture.h"
#include "registered_test.h"

#include <QTest>

#include <cmath>

using namespace zeigewerk;
using test::Controller;

class AutoFadeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aStrokeHoldsThenFadesThenIsRemoved_data();
    void aStrokeHoldsThenFadesThenIsRemoved();
    void strokesFadeInTheOrderTheyWereDrawn();
    void strokesOnEveryScreenFade();
    void theWhiteboardSuspendsFading();
    void turningFadingOffMakesStrokesOpaqueAgain();
    void aShapeAgesOnlyAfterItsRelease();
    void aPinnedDrawingFades();
    void theSettingIsSaved();
    void settingTheClockBackMakesStrokesOpaque();
    void shapesThatDoNotFadeYetAreNotRepainted();
    void removingAnInvisibleShapeRepaintsNothing();
};

namespace {

int inkAlpha(Controller &controller, std::size_t screen = 0)
{
    // In the middle of the stroke that `Controller::draw` draws by default.
    controller.surface(screen).display();
    const QImage &image = controller.surface(screen).image();
    return qAlpha(image.pixel(150, image.height() - 125));
}

} // namespace

void AutoFadeTest::aStrokeHoldsThenFadesThenIsRemoved_data()
{
    QTest::addColumn<double>("age");
    QTest::addColumn<int>("alpha");
    QTest::addColumn<bool>("isKept");
    QTest::newRow("fresh") << 0.0 << 255 << true;
    QTest::newRow("end of the hold") << 4.0 << 255 << true;
    QTest::newRow("half faded") << 4.4 << 128 << true;
    QTest::newRow("almost faded") << 4.79 << 3 << true;
    QTest::newRow("faded") << 4.8 << 0 << false;
    QTest::newRow("faded long ago") << 1000.0 << 0 << false;
}

void AutoFadeTest::aStrokeHoldsThenFadesThenIsRemoved()
{
    QFETCH(double, age);
    QFETCH(int, alpha);
    QFETCH(bool, isKept);
    Controller controller;
    controller.startWithFading();
    controller.draw(controller.view());
    QCOMPARE(inkAlpha(controller), 255);
    controller.passTime(age);
    controller.app().tickFade();
    QVERIFY(std::abs(inkAlpha(controller) - alpha) <= 1);
    QCOMPARE(!controller.view().shapes().empty(), isKept);
    QCOMPARE(controller.app().isFadeTimerRunning(), isKept);
}

void AutoFadeTest::strokesFadeInTheOrderTheyWereDrawn()
{
    Controller controller;
    controller.startWithFading();
    for (const double y : {100.0, 200.0, 300.0}) {
        controller.draw(controller.view(), {100, y}, {200, y});
        controller.passTime(2.0);
    }
    // They are six, four and two seconds old.
    controller.app().tickFade();
    QCOMPARE(controller.view().shapes().size(), 2U);
    QCOMPARE(controller.view().shapes().front().start, QPointF(100, 200));
    QCOMPARE(controller.view().shapes().back().start, QPointF(100, 300));
    controller.passTime(0.8);
    controller.app().tickFade();
    QCOMPARE(controller.view().shapes().size(), 1U);
    QCOMPARE(controller.view().shapes().front().start, QPointF(100, 300));
    QCOMPARE(controller.app().shapeOrder().size(), 3U);
}

void AutoFadeTest::strokesOnEveryScreenFade()
{
    Controller controller(test::twoScreens());
    controller.startWithFading();
    controller.draw(controller.view(0));
    controller.draw(controller.view(1));
    controller.passTime(4.4);
    controller.app().tickFade();
    for (const std::size_t screen : {0U, 1U})
        QVERIFY(std::abs(inkAlpha(controller, screen) - 128) <= 1);
}

void AutoFadeTest::theWhiteboardSuspendsFading()
{
    Controller controller;
    controller.startWithFading();
    controller.draw(controller.view());
    controller.passTime(4.5);
    controller.app().tickFade();
    QVERIFY(inkAlpha(controller) < 128);
    controller.app().toggleBoard();
    QVERIFY(!controller.app().isFadeTimerRunning());
    controller.surface().display();
    QCOMPARE(QColor(controller.surface().image().pixel(150, 675)), QColor(0xF2, 0x9A, 0x00));
    controller.passTime(10.0);
    controller.app().tickFade();
    QCOMPARE(controller.view().shapes().size(), 1U);

    controller.app().toggleBoard();
    QVERIFY(controller.app().isFadeTimerRunning());
    controller.app().tickFade();
    QVERIFY(controller.view().shapes().empty());
    QCOMPARE(inkAlpha(controller), 0);
}

void AutoFadeTest::turningFadingOffMakesStrokesOpaqueAgain()
{
    Controller controller;
    controller.startWithFading();
    controller.draw(controller.view());
    controller.passTime(4.6);
    controller.app().tickFade();
    QVERIFY(inkAlpha(controller) < 128);
    controller.app().toggleFade();
    QCOMPARE(inkAlpha(controller), 255);
    controller.passTime(100.0);
    QCOMPARE(inkAlpha(controller), 255);
    controller.app().toggleFade();
    controller.app().tickFade();
    QVERIFY(controller.view().shapes().empty());
    QCOMPARE(inkAlpha(controller), 0);
}

void AutoFadeTest::aShapeAgesOnlyAfterItsRelease()
{
    Controller controller;
    controller.startWithFading();
    controller.view().mouseDown({{100, 100}, {}});
    controller.view().mouseDragged({{200, 150}, {}});
    controller.app().refreshAll();
    QVERIFY(!controller.app().isFadeTimerRunning());
    controller.passTime(100.0);
    controller.app().tickFade();
    QVERIFY(controller.view().current());
    QCOMPARE(inkAlpha(controller), 255);
    // Its age counts from its release.
    controller.view().mouseUp({{200, 150}, {}});
    QVERIFY(controller.app().isFadeTimerRunning());
    controller.passTime(3.9);
    controller.app().tickFade();
    QCOMPARE(inkAlpha(controller), 255);
}

void AutoFadeTest::aPinnedDrawingFades()
{
    Controller controller;
    controller.startWithFading();
    controller.draw(controller.view());
    controller.app().togglePin();
    controller.passTime(4.4);
    controller.app().tickFade();
    QVERIFY(std::abs(inkAlpha(controller) - 128) <= 1);
    controller.passTime(0.4);
    controller.app().tickFade();
    QCOMPARE(inkAlpha(controller), 0);
    QVERIFY(controller.app().pinnedOn());
}

void AutoFadeTest::theSettingIsSaved()
{
    Controller controller;
    for (const bool expected : {true, false, true}) {
        controller.app().toggleFade();
        QCOMPARE(controller.app().autoFadeOn(), expected);
        QCOMPARE(controller.defaults.boolForKey(kAutoFadeKey), std::optional(expected));
    }
    // The next start reads it.
    const AppDelegate next(controller.desktop, controller.defaults);
    QVERIFY(next.autoFadeOn());
}

void AutoFadeTest::settingTheClockBackMakesStrokesOpaque()
{
    Controller controller;
    controller.startWithFading();
    controller.draw(controller.view());
    controller.passTime(4.4);
    controller.app().tickFade();
    QVERIFY(std::abs(inkAlpha(controller) - 128) <= 1);
    controller.passTime(-3600.0);
    controller.app().tickFade();
    QCOMPARE(inkAlpha(controller), 255);
    QVERIFY(controller.app().isFadeTimerRunning());
    controller.passTime(3600.5);
    controller.app().tickFade();
    QCOMPARE(inkAlpha(controller), 0);
    QVERIFY(!controller.app().isFadeTimerRunning());
}

void AutoFadeTest::shapesThatDoNotFadeYetAreNotRepainted()
{
    Controller controller;
    controller.startWithFading();
    for (int i = 0; i < 1000; ++i) {
        const int row = i / 40;
        const double x = 20.0 * (i % 40);
        const double y = 20.0 * row;
        controller.draw(controller.view(), {x, y}, {x + 10, y + 5});
    }
    QVERIFY(controller.surface().display());
    const qint64 painted = controller.surface().paintedPixels();
    for (int tick = 0; tick < 100; ++tick) {
        controller.passTime(0.03);
        controller.app().tickFade();
        QVERIFY(!controller.surface().display());
    }
    QCOMPARE(controller.surface().paintedPixels(), painted);
    QCOMPARE(controller.view().shapes().size(), 1000U);
}

void AutoFadeTest::removingAnInvisibleShapeRepaintsNothing()
{
    Controller controller;
    controller.startWithFading();
    controller.draw(controller.view());
    controller.passTime(5.0);
    // A repaint without a tick makes it invisible before it is removed.
    controller.view().modesChanged();
    QVERIFY(controller.surface().display());
    QCOMPARE(inkAlpha(controller), 0);
    controller.app().tickFade();
    QVERIFY(controller.view().shapes().empty());
    QVERIFY(!controller.surface().display());
}

REGISTER_TEST(AutoFadeTest)
#include "auto_fade_test.moc"
