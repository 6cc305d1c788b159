#include "controller_fixture.h"
#include "registered_test.h"

#include <QTest>

using namespace zeigewerk;
using test::Controller;

class FadeTimerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itRunsExactlyWhileAShapeCanFade_data();
    void itRunsExactlyWhileAShapeCanFade();
    void itsTicksFadeTheShapes();
    void itStopsAfterTheLastShape();
    void newShapesDoNotDelayItsTicks();
};

void FadeTimerTest::itRunsExactlyWhileAShapeCanFade_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::addColumn<bool>("runs");

    const auto row = [](const char *name, const char *before, const char *after, bool runs) {
        QTest::newRow(name) << QString(before) << QString(after) << runs;
    };
    // A stroke is drawn between the operations before and after.
    row("never turned on", "d", "", false);
    row("turned on before", "fd", "", true);
    row("turned on afterwards", "d", "f", true);
    row("turned on and off", "fd", "f", false);
    row("on the whiteboard", "fw", "", false);
    row("the whiteboard is turned on afterwards", "fd", "w", false);
    row("the whiteboard is turned on and off", "fd", "ww", true);
    row("the drawing is pinned", "fd", "p", true);
    row("drawing is turned off", "fd", "d", false);
    row("Esc ends everything", "fds", "e", false);
    row("with other modes on", "fdskr", "", true);
}

void FadeTimerTest::itRunsExactlyWhileAShapeCanFade()
{
    QFETCH(QString, before);
    QFETCH(QString, after);
    QFETCH(bool, runs);
    Controller controller;
    controller.perform(before);
    QVERIFY(!controller.app().isFadeTimerRunning());
    controller.draw(controller.view());
    controller.perform(after);
    QCOMPARE(controller.app().isFadeTimerRunning(), runs);
}

void FadeTimerTest::itsTicksFadeTheShapes()
{
    Controller controller;
    controller.startWithFading();
    controller.draw(controller.view());
    platform::RecordingSurface &surface = controller.surface();
    surface.display();
    const qint64 painted = surface.paintedPixels();
    const auto isRepainted = [&] {
        surface.display();
        return surface.paintedPixels() > painted;
    };
    controller.passTime(4.4);
    QTRY_VERIFY(isRepainted());
    controller.passTime(0.4);
    QTRY_VERIFY(!controller.app().isFadeTimerRunning());
    QVERIFY(controller.view().shapes().empty());
}

void FadeTimerTest::itStopsAfterTheLastShape()
{
    Controller controller(test::twoScreens());
    controller.startWithFading();
    controller.draw(controller.view(0));
    controller.passTime(1.0);
    controller.draw(controller.view(1));
    controller.passTime(3.9);
    controller.app().tickFade();
    QVERIFY(controller.view(0).shapes().empty());
    QVERIFY(controller.app().isFadeTimerRunning());
    controller.passTime(1.0);
    controller.app().tickFade();
    QVERIFY(controller.view(1).shapes().empty());
    QVERIFY(!controller.app().isFadeTimerRunning());
    // The next stroke starts it again.
    controller.draw(controller.view(0));
    QVERIFY(controller.app().isFadeTimerRunning());
}

void FadeTimerTest::newShapesDoNotDelayItsTicks()
{
    Controller controller;
    controller.startWithFading();
    controller.draw(controller.view(), {50, 50}, {60, 50});
    controller.passTime(5.0);
    // If each new shape restarted the timer, drawing faster than it ticks would delay its tick forever.
    const auto isFirstKept = [&] { return controller.view().shapes().front().start == QPointF(50, 50); };
    constexpr int kShorterThanATick = 5;
    const QDeadlineTimer deadline(5000);
    while (isFirstKept() && !deadline.hasExpired()) {
        controller.draw(controller.view());
        QTest::qWait(kShorterThanATick);
    }
    QVERIFY(!isFirstKept());
    QVERIFY(controller.app().isFadeTimerRunning());
}

REGISTER_TEST(FadeTimerTest)
#include "fade_timer_test.moc"
