// Tests the rig itself, without the program: its observations must be right before a test can rely on them.
#include "rig_self_test.h"

#include "registered_test.h"
#include "rig.h"

#include <csignal>

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

namespace {

const QRect kHd(0, 0, 1280, 720);
const QRect kFullHdBeside(1280, 0, 1920, 1080);

} // namespace

class RigSelfTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void windowBeneathShowsItsColourAtItsPlace();
    void screensComeAndGo();
    void raisedWindowIsAboveTheOther();
    void fullScreenWindowCoversTheScreen();
    void programIsReadyAndVisible();
    void exitCodesAreReported();
    void unresponsiveProgramIsKilled();
    void translucencyComesAndGoesWithTheCompositor();
    void desktopWithoutManagersWorks();
    void sessionEndsAllItsProcesses();
    void conditionsArePolledUntilSettled();
    void failurePicturesShowTheScreen();
};

void RigSelfTest::initTestCase()
{
    qputenv("ZEIGEWERK_BINARY", RIG_STAND_IN);
}

void RigSelfTest::windowBeneathShowsItsColourAtItsPlace()
{
    DesktopSession session;
    const Screenshot before = session.screenshot();
    QCOMPARE(before.rect(), VirtualDisplay::kFullHd);
    {
        WindowBeneath beneath(session, kBeneath, kBlue);
        EVENTUALLY(session.screenshot().isFilled(kBlue, kBeneath));
        const Screenshot now = session.screenshot();
        QCOMPARE(now.pixel(kBeneath.center()), kBlue);
        QCOMPARE(now.bounds(kBlue, now.rect()), kBeneath);
        QVERIFY(differs(before, now, kBeneath));
        QVERIFY(!differs(before, now, QRect(0, 0, kBeneath.left(), 1080)));
    }
    EVENTUALLY(!differs(before, session.screenshot(), before.rect()));
}

void RigSelfTest::screensComeAndGo()
{
    DesktopSession session({.screens = {kHd, kFullHdBeside}});
    VirtualDisplay &display = session.display();
    using Screens = QMap<int, QRect>;
    QCOMPARE(display.screens(), Screens({{0, kHd}, {1, kFullHdBeside}}));
    QCOMPARE(session.screenshot().rect(), kHd | kFullHdBeside);
    display.unplug(1);
    QCOMPARE(display.screens(), Screens({{0, kHd}}));
    QCOMPARE(session.screenshot().rect(), kHd);
    display.plug(2, QRect(0, 720, 3840, 2160));
    QCOMPARE(display.screens(), Screens({{0, kHd}, {2, QRect(0, 720, 3840, 2160)}}));
    display.plug(0, kFullHdBeside.translated(-1280, 0));
    display.unplug(2);
    QCOMPARE(display.screens(), Screens({{0, QRect(0, 0, 1920, 1080)}}));
    display.unplug(0);
    QVERIFY(display.screens().isEmpty());
    display.plug(0, kHd);
    QCOMPARE(session.screenshot().rect(), kHd);
}

void RigSelfTest::raisedWindowIsAboveTheOther()
{
    DesktopSession session;
    WindowBeneath one(session, kBeneath, kBlue);
    WindowBeneath other(session, kBeneath.translated(50, 50), Qt::green);
    for (WindowBeneath *raised : {&one, &other, &one}) {
        WindowBeneath &lower = raised == &one ? other : one;
        QVERIFY(raised->raise());
        QVERIFY(session.client().isAbove(raised->id(), lower.id()));
        QVERIFY(!session.client().isAbove(lower.id(), raised->id()));
        const QColor shown = raised == &one ? kBlue : QColor(Qt::green);
        EVENTUALLY(session.screenshot().pixel({500, 400}) == shown);
    }
    QVERIFY(one.hide());
    EVENTUALLY(session.screenshot().pixel({500, 400}) == QColor(Qt::green));
}

void RigSelfTest::fullScreenWindowCoversTheScreen()
{
    DesktopSession session;
    WindowBeneath beneath(session, kBeneath, kBlue);
    QVERIFY(beneath.setFullScreen(true));
    EVENTUALLY(session.screenshot().isFilled(kBlue, VirtualDisplay::kFullHd));
    QVERIFY(beneath.setFullScreen(false));
    EVENTUALLY(session.screenshot().bounds(kBlue, VirtualDisplay::kFullHd) == kBeneath);
}

void RigSelfTest::programIsReadyAndVisible()
{
    DesktopSession session;
    WindowBeneath beneath(session, kBeneath, Qt::white);
    Program program(session);
    QVERIFY(program.waitUntilReady());
    QVERIFY(program.isRunning());
    EVENTUALLY(program.output() == "the stand-in is ready\n");
    QVERIFY(program.residentBytes() > 100'000);
    QVERIFY(program.cpuTime() > 0ns);

    const QList<WindowInfo> windows = session.client().windowsOfProcess(program.processId());
    QCOMPARE(windows.size(), 1);
    QCOMPARE(windows.first().geometry, QRect(100, 100, 200, 150));
    QCOMPARE(windows.first().depth, 32);
    QVERIFY(windows.first().overrideRedirect);
    QVERIFY(windows.first().viewable);
    QVERIFY(session.client().isAbove(windows.first().id, beneath.id()));
    const QList<WindowInfo> ours = session.client().windowsOfClass(QStringLiteral("Beneath"));
    QCOMPARE(ours.size(), 1);
    QCOMPARE(ours.first().id, beneath.id());
    QVERIFY(!ours.first().overrideRedirect);
}

void RigSelfTest::exitCodesAreReported()
{
    DesktopSession session({.windowManager = WindowManager::None, .compositor = Compositor::None});
    Program program(session);
    QVERIFY(program.waitUntilReady());
    QCOMPARE(program.terminate(), std::optional(0));
    QVERIFY(!program.isRunning());
    EVENTUALLY(!isGrabbedByAnother(session, {Key::Ctrl, Key::Alt}, Key::P));

    Program brief(session, {}, {QStringLiteral("--exit-with-3")});
    QCOMPARE(brief.waitForExit(), std::optional(3));
    QVERIFY(!brief.waitUntilReady());
}

void RigSelfTest::unresponsiveProgramIsKilled()
{
    DesktopSession session({.windowManager = WindowManager::None, .compositor = Compositor::None});
    qint64 processId = 0;
    {
        Program unresponsive(session, {}, {QStringLiteral("--ignore-sigterm")});
        QVERIFY(unresponsive.waitUntilReady());
        processId = unresponsive.processId();
        QCOMPARE(unresponsive.terminate(200ms), std::nullopt);
        QVERIFY(unresponsive.isRunning());
    }
    QCOMPARE(kill(static_cast<pid_t>(processId), 0), -1);
}

void RigSelfTest::translucencyComesAndGoesWithTheCompositor()
{
    DesktopSession session;
    WindowBeneath beneath(session, VirtualDisplay::kFullHd, Qt::white);
    Program program(session);
    QVERIFY(program.waitUntilReady());
    const QRect window(100, 100, 200, 150);
    const QColor blended(0xFF, 0x7F, 0x7F);
    const QColor opaque(0x80, 0, 0);
    EVENTUALLY(session.screenshot().isFilled(blended, window, 1));
    session.stopCompositor();
    EVENTUALLY(session.screenshot().isFilled(opaque, window));
    session.startCompositor();
    EVENTUALLY(session.screenshot().isFilled(blended, window, 1));
}

void RigSelfTest::desktopWithoutManagersWorks()
{
    DesktopSession session({.windowManager = WindowManager::None, .compositor = Compositor::None});
    QVERIFY(!session.isComposited());
    WindowBeneath beneath(session, kBeneath, kBlue);
    QVERIFY(beneath.takeFocus());
    session.keyboard().tap(Key::Escape);
    EVENTUALLY(beneath.pressedKeys() == QList<Key>({Key::Escape}));
    QVERIFY(session.screenshot().isFilled(kBlue, kBeneath));
}

void RigSelfTest::sessionEndsAllItsProcesses()
{
    QByteArray mark;
    qint64 server = 0;
    QString display;
    {
        DesktopSession session;
        mark = "HOME=" + session.environment().value(QStringLiteral("HOME")).toUtf8();
        server = session.display().serverProcessId();
        display = session.display().name();
        Program program(session, {}, {QStringLiteral("--leave-child")});
        QVERIFY(program.waitUntilReady());
        // Bus, window manager, compositor, the stand-in and its child.
        EVENTUALLY(processesWithEnvironment(mark).size() == 5);
        QCOMPARE(program.terminate(), std::optional(0));
        EVENTUALLY(processesWithEnvironment(mark).size() == 4);
    }
    QVERIFY(processesWithEnvironment(mark).isEmpty());
    QCOMPARE(kill(static_cast<pid_t>(server), 0), -1);
    QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(QStringLiteral("no connection to display")));
    QVERIFY_THROWS_EXCEPTION(RigError, Client{display});
    QVERIFY(DesktopSession::all().isEmpty());
}

void RigSelfTest::conditionsArePolledUntilSettled()
{
    int polls = 0;
    QVERIFY(eventually([&] { return ++polls == 3; }));
    QCOMPARE(polls, 3);
    QVERIFY(!eventually([] { return false; }, 20ms));
    QVERIFY(throughout(20ms, [] { return true; }));
    polls = 0;
    QVERIFY(!throughout(1s, [&] { return ++polls < 3; }));
    QCOMPARE(polls, 3);
}

void RigSelfTest::failurePicturesShowTheScreen()
{
    // A separate folder, so that two runs of this test do not interfere.
    const QTemporaryDir folder;
    qputenv("ZEIGEWERK_FAILURES_DIR", QFile::encodeName(folder.path()));
    const auto restored = qScopeGuard([] { qunsetenv("ZEIGEWERK_FAILURES_DIR"); });
    QVERIFY(saveFailurePictures().isEmpty());
    DesktopSession session;
    WindowBeneath beneath(session, kBeneath, kBlue);
    EVENTUALLY(session.screenshot().isFilled(kBlue, kBeneath));
    const QStringList saved = saveFailurePictures();
    QCOMPARE(saved.size(), 1);
    QCOMPARE(saved.first(),
             folder.filePath(
                 QStringLiteral("rig_self_test_%1.png").arg(QLatin1String(QTest::currentTestFunction()))));
    QCOMPARE(QImage(saved.first()).pixelColor(kBeneath.center()), kBlue);
}

REGISTER_GUILESS_TEST(RigSelfTest)
#include "rig_self_test.moc"
