#include "registered_test.h"
#include "seam_stand_in.h"

using namespace zeigewerk::rig;

class X11SeamScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theMainScreenHasTheKeyboardFocus();
    void withoutAFocusedWindowThePrimaryScreenIsTheMainScreen();
    void theVisibleFrameExcludesDocks_data();
    void theVisibleFrameExcludesDocks();
    void withoutAWindowManagerThereAreNoDocks();
    void theEmbeddingTrayComesAndGoes();
};

void X11SeamScenarios::theMainScreenHasTheKeyboardFocus()
{
    DesktopSession session({.screens = {kLeft, kRight}});
    SeamStandIn standIn(session);
    standIn.tell("show");
    QCOMPARE(standIn.tell("desktop main"), QString("DUMMY0"));
    WindowBeneath right(session, {1400, 100, 500, 500}, Qt::blue);
    QVERIFY(right.takeFocus());
    QCOMPARE(standIn.tell("desktop main"), QString("DUMMY1"));
    WindowBeneath astride(session, {1000, 100, 500, 500}, Qt::green);
    QVERIFY(astride.takeFocus());
    QCOMPARE(standIn.tell("desktop main"), QString("DUMMY0"));
}

void X11SeamScenarios::withoutAFocusedWindowThePrimaryScreenIsTheMainScreen()
{
    // A window manager would set the focus to a window.
    DesktopSession session({.screens = {kLeft, kRight}, .windowManager = WindowManager::None});
    SeamStandIn standIn(session);
    standIn.tell("show");
    WindowBeneath right(session, {1400, 100, 500, 500}, Qt::blue);
    for (const xcb_window_t focus : {xcb_window_t{XCB_INPUT_FOCUS_POINTER_ROOT},
                                     xcb_window_t{XCB_INPUT_FOCUS_NONE}, session.client().root()}) {
        QVERIFY(right.takeFocus());
        QCOMPARE(standIn.tell("desktop main"), QString("DUMMY1"));
        session.client().setInputFocus(focus);
        QCOMPARE(standIn.tell("desktop main"), QString("DUMMY0"));
    }
}

void X11SeamScenarios::theVisibleFrameExcludesDocks_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QList<quint32>>("strut");
    QTest::addColumn<QRect>("dockFrame");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");

    // The second screen, twice as dense, has 800 x 450 points from (1280, 574).
    const QString first("0 0 1280 1024");
    const QString second("1280 574 800 450");
    QTest::newRow("top of the first screen")
        << QByteArray("_NET_WM_STRUT_PARTIAL") << QList<quint32>{0, 0, 30, 0, 0, 0, 0, 0, 0, 1279, 0, 0}
        << QRect(0, 0, 1280, 30) << "0 0 1280 994" << second;
    QTest::newRow("bottom of the second screen")
        << QByteArray("_NET_WM_STRUT_PARTIAL") << QList<quint32>{0, 0, 0, 164, 0, 0, 0, 0, 0, 0, 1280, 2879}
        << QRect(1280, 860, 1600, 40) << first << "1280 594 800 430";
    QTest::newRow("between the screens")
        << QByteArray("_NET_WM_STRUT_PARTIAL") << QList<quint32>{1340, 0, 0, 0, 0, 899, 0, 0, 0, 0, 0, 0}
        << QRect(1280, 0, 60, 900) << first << "1310 574 770 450";
    QTest::newRow("the older property") << QByteArray("_NET_WM_STRUT") << QList<quint32>{48, 0, 0, 0}
                                        << QRect(0, 0, 48, 1024) << "48 0 1232 1024" << second;
}

void X11SeamScenarios::theVisibleFrameExcludesDocks()
{
    QFETCH(QByteArray, property);
    QFETCH(QList<quint32>, strut);
    QFETCH(QRect, dockFrame);
    QFETCH(QString, first);
    QFETCH(QString, second);
    DesktopSession session({.screens = {kLeft, kRight}});
    SeamStandIn standIn(session, {{"QT_SCREEN_SCALE_FACTORS", "DUMMY0=1;DUMMY1=2"}});
    QCOMPARE(standIn.tell("desktop visible"), QString("0 0 1280 1024;1280 574 800 450"));
    const Dock dock(session, dockFrame, property, strut);
    QCOMPARE(standIn.tell("desktop visible"), first + ";" + second);
}

void X11SeamScenarios::withoutAWindowManagerThereAreNoDocks()
{
    DesktopSession session({.windowManager = WindowManager::None});
    SeamStandIn standIn(session);
    QCOMPARE(standIn.tell("desktop visible"), QString("0 0 1920 1080"));
}

void X11SeamScenarios::theEmbeddingTrayComesAndGoes()
{
    DesktopSession session;
    SeamStandIn standIn(session);
    const auto tray = [&] { return standIn.tell("desktop tray") + " " + standIn.tell("signals tray"); };
    QCOMPARE(tray(), QString("none 0"));
    {
        Client host(session.display().name());
        const xcb_window_t window = xcb_generate_id(host.connection());
        xcb_create_window(host.connection(), XCB_COPY_FROM_PARENT, window, host.root(), 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_set_selection_owner(host.connection(), window, host.atom("_NET_SYSTEM_TRAY_S0"),
                                XCB_CURRENT_TIME);
        host.roundTrip();
        EVENTUALLY(tray() == "there 1");
        // The compositor's selection does not matter.
        session.stopCompositor();
        EVENTUALLY(!session.isComposited());
        QCOMPARE(tray(), QString("there 1"));
    }
    EVENTUALLY(tray() == "none 2");
}

REGISTER_GUILESS_TEST(X11SeamScenarios)
#include "x11_seam_scenarios.moc"
