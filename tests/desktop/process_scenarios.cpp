#include "presentation.h"
#include "registered_test.h"

#include <signal.h>

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

class ProcessScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutADisplayItReportsThatAndExits_data();
    void withoutADisplayItReportsThatAndExits();
    void signalsEndItCleanly_data();
    void signalsEndItCleanly();
    void aBrokenPipeDoesNotEndIt();
    void afterAKillTheDesktopIsUsable();
    void itSleepsWhenIdle();
    void aSecondInstanceExitsQuietly();
    void onlyOneOfTwoSimultaneousStartsRemains();
    void aKilledInstanceDoesNotBlockTheNext();
    void whenTheDisplayGoesAwayItReportsThatAndExits_data();
    void whenTheDisplayGoesAwayItReportsThatAndExits();
    void inAWaylandSessionItReportsItsLimits();
};

void ProcessScenarios::withoutADisplayItReportsThatAndExits_data()
{
    QTest::addColumn<QString>("display");
    QTest::addColumn<QByteArray>("line");
    const QByteArray notSet = "zeigewerk: no X11 display: DISPLAY is not set\n";
    const QByteArray unreachable = "zeigewerk: cannot reach the X11 display :64999\n";
    QTest::newRow("not set") << QString("") << notSet;
    QTest::newRow("unreachable") << QString(":64999") << unreachable;
}

void ProcessScenarios::withoutADisplayItReportsThatAndExits()
{
    QFETCH(QString, display);
    QFETCH(QByteArray, line);
    DesktopSession session;
    Program program(session, {{"DISPLAY", display}});
    QCOMPARE(program.waitForExit(), std::optional(1));
    QCOMPARE(program.output(), line);
}

void ProcessScenarios::signalsEndItCleanly_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGHUP") << SIGHUP;
}

void ProcessScenarios::signalsEndItCleanly()
{
    QFETCH(int, signal);
    Presentation show;
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    QCOMPARE(kill(static_cast<pid_t>(show.program.processId()), signal), 0);
    QCOMPARE(show.program.waitForExit(), std::optional(0));
    QVERIFY(show.program.output().isEmpty());
    QVERIFY(!isGrabbedByAnother(show.session, {Key::Ctrl, Key::Alt}, Key::D));
    EVENTUALLY(show.beneath.hasFocus());
}

void ProcessScenarios::aBrokenPipeDoesNotEndIt()
{
    Presentation show;
    QCOMPARE(kill(static_cast<pid_t>(show.program.processId()), SIGPIPE), 0);
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    QCOMPARE(show.program.terminate(), std::optional(0));
}

void ProcessScenarios::afterAKillTheDesktopIsUsable()
{
    Presentation show;
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    QCOMPARE(kill(static_cast<pid_t>(show.program.processId()), SIGKILL), 0);
    EVENTUALLY(!show.program.isRunning());
    show.beneath.forget();
    QVERIFY(show.session.pointer().clickAt({500, 500}));
    EVENTUALLY(show.beneath.presses().size() == 1);
    show.session.keyboard().tap(Key::A);
    EVENTUALLY(show.beneath.pressedKeys().contains(Key::A));
}

void ProcessScenarios::itSleepsWhenIdle()
{
    Presentation show;
    // Modes are turned on and off again, so that anything that might leave a timer running has run.
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    for (const Key key : {Key::S, Key::S, Key::D})
        show.hotKey(key);
    EVENTUALLY(show.beneath.hasFocus() && show.overlays().isEmpty());
    // Pending work is finished first; afterwards nothing happens any more.
    EVENTUALLY_WITHIN(10s, sleepsFor(show.program.processId(), 1s));
    QVERIFY(sleepsFor(show.program.processId(), 4s));
}

void ProcessScenarios::aSecondInstanceExitsQuietly()
{
    Presentation show;
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    for (int i = 0; i < 3; ++i) {
        Program second(show.session);
        QCOMPARE(second.waitForExit(), std::optional(0));
        QVERIFY(second.output().isEmpty());
    }
    // The first instance is not affected.
    QVERIFY(show.program.isRunning());
    QVERIFY(show.hasKeyboard());
    show.hotKey(Key::D);
    EVENTUALLY(show.beneath.hasFocus() && show.overlays().isEmpty());
}

void ProcessScenarios::onlyOneOfTwoSimultaneousStartsRemains()
{
    DesktopSession session;
    for (int i = 0; i < 3; ++i) {
        Program one(session);
        Program other(session);
        EVENTUALLY(!one.isRunning() || !other.isRunning());
        Program &exited = one.isRunning() ? other : one;
        Program &remaining = one.isRunning() ? one : other;
        QCOMPARE(exited.waitForExit(), std::optional(0));
        QVERIFY(remaining.waitUntilReady());
        QCOMPARE(remaining.terminate(), std::optional(0));
    }
}

void ProcessScenarios::aKilledInstanceDoesNotBlockTheNext()
{
    DesktopSession session;
    Program first(session);
    QVERIFY(first.waitUntilReady());
    QCOMPARE(kill(static_cast<pid_t>(first.processId()), SIGKILL), 0);
    EVENTUALLY(!first.isRunning());
    Program second(session);
    QVERIFY(second.waitUntilReady());
}

void ProcessScenarios::whenTheDisplayGoesAwayItReportsThatAndExits_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<QList<Key>>("modes");
    QTest::newRow("terminated while idle") << SIGTERM << QList<Key>{};
    QTest::newRow("killed while idle") << SIGKILL << QList<Key>{};
    QTest::newRow("terminated with all modes on") << SIGTERM << QList<Key>{Key::K, Key::S, Key::D};
    QTest::newRow("killed with all modes on") << SIGKILL << QList<Key>{Key::K, Key::S, Key::D};
}

void ProcessScenarios::whenTheDisplayGoesAwayItReportsThatAndExits()
{
    QFETCH(int, signal);
    QFETCH(QList<Key>, modes);
    Presentation show;
    for (const Key mode : modes)
        show.hotKey(mode);
    // Drawing is turned on last, if at all.
    EVENTUALLY(show.hasKeyboard() == modes.contains(Key::D));
    QCOMPARE(kill(static_cast<pid_t>(show.session.display().serverProcessId()), signal), 0);
    QCOMPARE(show.program.waitForExit(), std::optional(1));
    QCOMPARE(show.program.output(), QByteArray("zeigewerk: the X11 display has gone away\n"));
}

void ProcessScenarios::inAWaylandSessionItReportsItsLimits()
{
    Presentation show({}, {{"WAYLAND_DISPLAY", "wayland-0"}, {"XDG_SESSION_TYPE", "wayland"}});
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.session.pointer().drag({{400, 300}, {500, 300}}));
    EVENTUALLY(show.pixel({450, 300}) == kInk);
    QCOMPARE(
        show.program.output(),
        QByteArray("zeigewerk: in this Wayland session hot keys, click rings and what follows the pointer "
                   "work over X11 programs only\n"));
    // A second instance does not print the message.
    Program second(show.session, {{"WAYLAND_DISPLAY", "wayland-0"}});
    QCOMPARE(second.waitForExit(), std::optional(0));
    QVERIFY(second.output().isEmpty());
}

REGISTER_GUILESS_TEST(ProcessScenarios)
#include "process_scenarios.moc"
