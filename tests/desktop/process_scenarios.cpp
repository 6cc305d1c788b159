#include "presentation.h"
#include "registered_test.h"

#include <signal.h>

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

class ProcessScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutADisplayItSaysSoAndEnds_data();
    void withoutADisplayItSaysSoAndEnds();
    void signalsEndItInOrder_data();
    void signalsEndItInOrder();
    void writingToWhoeverIsGoneDoesNotEndIt();
    void afterAKillTheDesktopIsUsable();
    void waitingItSleeps();
    void aSecondStartEndsQuietly();
    void ofTwoStartsAtOnceOneStays();
    void oneThatWasKilledIsInNobodysWay();
    void whenTheDisplayGoesItSaysSoAndEnds_data();
    void whenTheDisplayGoesItSaysSoAndEnds();
    void inAWaylandSessionItSaysWhatWillNotWork();
};

void ProcessScenarios::withoutADisplayItSaysSoAndEnds_data()
{
    QTest::addColumn<QString>("display");
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("none") << QString("") << QByteArray("zeigewerk: no X11 display: DISPLAY is not set\n");
    QTest::newRow("unreachable") << QString(":64999")
                                 << QByteArray("zeigewerk: cannot reach the X11 display :64999\n");
}

void ProcessScenarios::withoutADisplayItSaysSoAndEnds()
{
    QFETCH(QString, display);
    QFETCH(QByteArray, line);
    DesktopSession session;
    Program program(session, {{"DISPLAY", display}});
    QCOMPARE(program.waitForExit(), std::optional(1));
    QCOMPARE(program.output(), line);
}

void ProcessScenarios::signalsEndItInOrder_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGHUP") << SIGHUP;
}

void ProcessScenarios::signalsEndItInOrder()
{
    QFETCH(int, signal);
    Presentation on;
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    QCOMPARE(kill(static_cast<pid_t>(on.program.processId()), signal), 0);
    QCOMPARE(on.program.waitForExit(), std::optional(0));
    QVERIFY(on.program.output().isEmpty());
    QVERIFY(!isGrabbedByAnother(on.session, {Key::Ctrl, Key::Alt}, Key::D));
    EVENTUALLY(on.beneath.hasFocus());
}

void ProcessScenarios::writingToWhoeverIsGoneDoesNotEndIt()
{
    Presentation on;
    QCOMPARE(kill(static_cast<pid_t>(on.program.processId()), SIGPIPE), 0);
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    QCOMPARE(on.program.terminate(), std::optional(0));
}

void ProcessScenarios::afterAKillTheDesktopIsUsable()
{
    Presentation on;
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    QCOMPARE(kill(static_cast<pid_t>(on.program.processId()), SIGKILL), 0);
    EVENTUALLY(!on.program.isRunning());
    on.beneath.forget();
    QVERIFY(on.session.pointer().clickAt({500, 500}));
    EVENTUALLY(on.beneath.presses().size() == 1);
    on.session.keyboard().tap(Key::A);
    EVENTUALLY(on.beneath.pressedKeys().contains(Key::A));
}

void ProcessScenarios::waitingItSleeps()
{
    Presentation on;
    // Everything on and off again, so that whatever could keep a timer has run.
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    for (const Key key : {Key::S, Key::S, Key::D})
        on.hotKey(key);
    EVENTUALLY(on.beneath.hasFocus() && on.overlays().isEmpty());
    // What was under way ends; from then on nothing happens any more.
    EVENTUALLY_WITHIN(10s, sleepsFor(on.program.processId(), 1s));
    QVERIFY(sleepsFor(on.program.processId(), 4s));
}

void ProcessScenarios::aSecondStartEndsQuietly()
{
    Presentation on;
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    for (int i = 0; i < 3; ++i) {
        Program second(on.session);
        QCOMPARE(second.waitForExit(), std::optional(0));
        QVERIFY(second.output().isEmpty());
    }
    // The first one goes on as if nothing had been.
    QVERIFY(on.program.isRunning());
    QVERIFY(on.hasKeyboard());
    on.hotKey(Key::D);
    EVENTUALLY(on.beneath.hasFocus() && on.overlays().isEmpty());
}

void ProcessScenarios::ofTwoStartsAtOnceOneStays()
{
    DesktopSession session;
    for (int i = 0; i < 3; ++i) {
        Program one(session);
        Program other(session);
        EVENTUALLY(!one.isRunning() || !other.isRunning());
        Program &gone = one.isRunning() ? other : one;
        Program &stays = one.isRunning() ? one : other;
        QCOMPARE(gone.waitForExit(), std::optional(0));
        QVERIFY(stays.waitUntilReady());
        QCOMPARE(stays.terminate(), std::optional(0));
    }
}

void ProcessScenarios::oneThatWasKilledIsInNobodysWay()
{
    DesktopSession session;
    Program first(session);
    QVERIFY(first.waitUntilReady());
    QCOMPARE(kill(static_cast<pid_t>(first.processId()), SIGKILL), 0);
    EVENTUALLY(!first.isRunning());
    Program second(session);
    QVERIFY(second.waitUntilReady());
}

void ProcessScenarios::whenTheDisplayGoesItSaysSoAndEnds_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<QList<Key>>("modes");
    QTest::newRow("it ends, waiting") << SIGTERM << QList<Key>{};
    QTest::newRow("it is killed, waiting") << SIGKILL << QList<Key>{};
    QTest::newRow("it ends, with everything on") << SIGTERM << QList<Key>{Key::K, Key::S, Key::D};
    QTest::newRow("it is killed, with everything on") << SIGKILL << QList<Key>{Key::K, Key::S, Key::D};
}

void ProcessScenarios::whenTheDisplayGoesItSaysSoAndEnds()
{
    QFETCH(int, signal);
    QFETCH(QList<Key>, modes);
    Presentation on;
    for (const Key mode : modes)
        on.hotKey(mode);
    // The last one, if any.
    EVENTUALLY(on.hasKeyboard() == modes.contains(Key::D));
    QCOMPARE(kill(static_cast<pid_t>(on.session.display().serverProcessId()), signal), 0);
    QCOMPARE(on.program.waitForExit(), std::optional(1));
    QCOMPARE(on.program.output(), QByteArray("zeigewerk: the X11 display has gone away\n"));
}

void ProcessScenarios::inAWaylandSessionItSaysWhatWillNotWork()
{
    Presentation on({}, {{"WAYLAND_DISPLAY", "wayland-0"}, {"XDG_SESSION_TYPE", "wayland"}});
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(on.session.pointer().drag({{400, 300}, {500, 300}}));
    EVENTUALLY(on.pixel({450, 300}) == kInk);
    QCOMPARE(
        on.program.output(),
        QByteArray("zeigewerk: in this Wayland session hot keys, click rings and what follows the pointer "
                   "work over X11 programs only\n"));
    // It is no reason for a second start to speak.
    Program second(on.session, {{"WAYLAND_DISPLAY", "wayland-0"}});
    QCOMPARE(second.waitForExit(), std::optional(0));
    QVERIFY(second.output().isEmpty());
}

REGISTER_GUILESS_TEST(ProcessScenarios)
#include "process_scenarios.moc"
