#include "rig.h"

using namespace zeigewerk::rig;

namespace {

const QRect kLeft(0, 0, 1280, 1024);
const QRect kRight(1280, 0, 1600, 900);
const QMargins kOrnament(20, 16, 20, 24);
const QSize kSlab(150, 300);

QList<QSize> sizesOf(const QList<WindowInfo> &windows)
{
    QList<QSize> sizes;
    for (const WindowInfo &window : windows)
        sizes.append(window.geometry.size());
    return sizes;
}

/// The stand-in, running: a red slab of 150 x 300 points with an ornament around it.
class Seam
{
public:
    explicit Seam(DesktopSession &session, const QMap<QString, QString> &environment = {})
        : m_session(session)
        , m_child(commandOf(session, environment))
    {
    }

    /// What it answers to that line; it has then done what it says.
    QString tell(const QString &line)
    {
        QProcess &process = m_child.process();
        process.write(line.toUtf8() + '\n');
        while (!process.canReadLine()) {
            if (!process.waitForReadyRead(static_cast<int>(kDeadline.count())))
                throw RigError("the stand-in does not answer");
        }
        return QString::fromUtf8(process.readLine()).trimmed();
    }

    /// Its windows on the screen, from the bottom to the top.
    QList<WindowInfo> windows()
    {
        QList<WindowInfo> shown;
        for (const WindowInfo &window : m_session.client().windowsOfProcess(m_child.processId())) {
            if (window.viewable)
                shown.append(window);
        }
        return shown;
    }
    /// The slab on the screen, without its ornament, in native pixels.
    QRect red()
    {
        const QImage image = m_session.screenshot().image();
        return m_session.screenshot().bounds(Qt::red, image.rect());
    }

private:
    static ChildProcess::Command commandOf(const DesktopSession &session,
                                           const QMap<QString, QString> &environment)
    {
        ChildProcess::Command command{.program = QStringLiteral(SEAM_STAND_IN),
                                      .environment = session.environment(),
                                      .logPath = QProcess::nullDevice(),
                                      .separateOutput = true,
                                      .readsInput = true};
        for (auto it = environment.cbegin(); it != environment.cend(); ++it)
            command.environment.insert(it.key(), *it);
        return command;
    }

    DesktopSession &m_session;
    ChildProcess m_child;
};

} // namespace

class SeamScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theWindowLandsWhereThePointsSay_data();
    void theWindowLandsWhereThePointsSay();
    void theOrnamentTakesNoClicks_data();
    void theOrnamentTakesNoClicks();
    void showingItLeavesTheKeyboardAlone();
    void levelsKeepTheirOrder_data();
    void levelsKeepTheirOrder();
    void menusAndTooltipsComeAboveIt();
    void aMenuThatOpensUnderAnOverlayIsBroughtUp();
    void theMainScreenIsThatOfTheKeyboard();
    void whereNoWindowHasTheKeyboardThePrimaryScreenIsTheMainOne();
    void panelsAreLeftOut_data();
    void panelsAreLeftOut();
    void withoutAWindowManagerThereAreNoPanels();
    void theEmbeddingTrayComesAndGoes();
    void theWindowOutlivesItsScreen();
};

void SeamScenarios::theWindowLandsWhereThePointsSay_data()
{
    QTest::addColumn<QString>("scales");
    QTest::addColumn<QPoint>("origin");
    QTest::addColumn<QRect>("native");

    // Points count from the lower left corner of the first screen, which is 1024 of them high.
    QTest::newRow("same scale, first screen") << "1;1" << QPoint(100, 200) << QRect(100, 524, 150, 300);
    QTest::newRow("same scale, second screen") << "1;1" << QPoint(1400, 300) << QRect(1400, 424, 150, 300);
    QTest::newRow("mixed scales, first screen") << "1;2" << QPoint(100, 200) << QRect(100, 524, 150, 300);
    // 120 points from its left edge and 24 from its top.
    QTest::newRow("mixed scales, second screen") << "1;2" << QPoint(1400, 700) << QRect(1520, 48, 300, 600);
    QTest::newRow("the first screen is the denser one")
        << "2;1" << QPoint(1400, 20) << QRect(1400, 192, 150, 300);
    QTest::newRow("a broken scale") << "1;1.5" << QPoint(1400, 700) << QRect(1460, 36, 225, 450);
}

void SeamScenarios::theWindowLandsWhereThePointsSay()
{
    QFETCH(QString, scales);
    QFETCH(QPoint, origin);
    QFETCH(QRect, native);
    DesktopSession session({.screens = {kLeft, kRight}});
    const QString factors =
        QString("DUMMY0=%1;DUMMY1=%2").arg(scales.section(';', 0, 0), scales.section(';', 1));
    const QString frame = QString("%1 %2 150 300").arg(origin.x()).arg(origin.y());
    const QString move = QString("move %1 %2").arg(origin.x()).arg(origin.y());
    {
        // Placed before it is shown.
        Seam seam(session, {{"QT_SCREEN_SCALE_FACTORS", factors}});
        QCOMPARE(seam.tell(move), frame);
        seam.tell("show");
        EVENTUALLY(seam.red() == native);
        QCOMPARE(seam.tell("frame"), frame);
    }
    // Moved while it is shown, there and back and there.
    Seam seam(session, {{"QT_SCREEN_SCALE_FACTORS", factors}});
    seam.tell("move 10 20");
    seam.tell("show");
    EVENTUALLY(!seam.red().isEmpty());
    const QRect before = seam.red();
    seam.tell(move);
    EVENTUALLY(seam.red() == native);
    QCOMPARE(seam.tell("frame"), frame);
    seam.tell("move 10 20");
    EVENTUALLY(seam.red() == before);
    QCOMPARE(seam.tell("frame"), QString("10 20 150 300"));
    seam.tell(move);
    EVENTUALLY(seam.red() == native);
    QCOMPARE(seam.tell("frame"), frame);
}

void SeamScenarios::theOrnamentTakesNoClicks_data()
{
    QTest::addColumn<QString>("scale");
    QTest::newRow("scale 1") << "1";
    QTest::newRow("scale 2") << "2";
}

void SeamScenarios::theOrnamentTakesNoClicks()
{
    QFETCH(QString, scale);
    DesktopSession session;
    WindowBeneath beneath(session, VirtualDisplay::kFullHd, Qt::blue);
    Seam seam(session, {{"QT_SCALE_FACTOR", scale}});
    seam.tell("move 200 100");
    seam.tell("show");
    EVENTUALLY(!seam.red().isEmpty());
    // Once as it was made and once after it has grown.
    for (const QString &size : {QString("150 300"), QString("220 340")}) {
        seam.tell("resize " + size);
        const QSize points(size.section(' ', 0, 0).toInt(), size.section(' ', 1).toInt());
        EVENTUALLY(seam.red().size() == points * scale.toInt());
        const QRect slab = seam.red();
        for (const QPoint outside : {slab.topLeft() - QPoint(2, 0), slab.topLeft() - QPoint(0, 2),
                                     slab.bottomRight() + QPoint(2, 0), slab.bottomRight() + QPoint(0, 2)}) {
            beneath.forget();
            QVERIFY(session.pointer().clickAt(outside));
            EVENTUALLY(beneath.presses() == QList<QPoint>{outside});
        }
        beneath.forget();
        for (const QPoint inside : {slab.topLeft() + QPoint(1, 1), slab.bottomRight() - QPoint(1, 1)})
            QVERIFY(session.pointer().clickAt(inside));
        // The order of clicks is kept: one that got through would have come before this.
        const QPoint after = slab.bottomRight() + QPoint(5, 5);
        QVERIFY(session.pointer().clickAt(after));
        EVENTUALLY(!beneath.presses().isEmpty());
        QCOMPARE(beneath.presses(), QList<QPoint>{after});
    }
}

void SeamScenarios::showingItLeavesTheKeyboardAlone()
{
    DesktopSession session;
    WindowBeneath beneath(session, VirtualDisplay::kFullHd, Qt::blue);
    QVERIFY(beneath.takeFocus());
    beneath.forget();
    Seam seam(session);
    for (int i = 0; i < 3; ++i) {
        seam.tell("show");
        EVENTUALLY(!seam.red().isEmpty());
        QVERIFY(session.pointer().clickAt(seam.red().center()));
        seam.tell("hide");
        EVENTUALLY(seam.red().isEmpty());
    }
    session.keyboard().tap(Key::A);
    EVENTUALLY(beneath.pressedKeys() == QList<Key>{Key::A});
    const QList<InputEvent> events = beneath.events();
    for (const InputEvent &event : events)
        QVERIFY(event.kind != InputEvent::Kind::FocusOut);
}

void SeamScenarios::levelsKeepTheirOrder_data()
{
    QTest::addColumn<QStringList>("shown");

    // The slab is at (200, 500), which is where the others are as well.
    QTest::newRow("from the bottom") << QStringList{"overlay", "show", "effect 250 600"};
    QTest::newRow("from the top") << QStringList{"effect 250 600", "show", "overlay"};
    QTest::newRow("the slab once more") << QStringList{"show", "effect 250 600", "overlay", "show"};
    QTest::newRow("the slab hidden meanwhile")
        << QStringList{"show", "hide", "effect 250 600", "overlay", "show"};
}

void SeamScenarios::levelsKeepTheirOrder()
{
    QFETCH(QStringList, shown);
    DesktopSession session;
    Seam seam(session);
    seam.tell("move 200 500");
    for (const QString &verb : shown)
        seam.tell(verb);
    EVENTUALLY(seam.windows().size() == 3);
    QCOMPARE(sizesOf(seam.windows()),
             QList<QSize>({VirtualDisplay::kFullHd.size(), kSlab.grownBy(kOrnament), QSize(56, 56)}));
    EVENTUALLY(!seam.red().isEmpty());
}

void SeamScenarios::menusAndTooltipsComeAboveIt()
{
    DesktopSession session;
    Seam seam(session);
    seam.tell("move 200 500");
    for (const QString verb : {"show", "overlay", "effect 250 600"})
        seam.tell(verb);
    EVENTUALLY(seam.windows().size() == 3);
    const QList<QSize> below = sizesOf(seam.windows());

    seam.tell("menu 250 300");
    seam.tell("tooltip 260 310");
    EVENTUALLY(seam.windows().size() == 5);
    const QList<QSize> all = sizesOf(seam.windows());
    QCOMPARE(all.first(3), below);
    const QRect menu = seam.windows().at(3).geometry;
    QCOMPARE(menu.topLeft(), QPoint(250, 300));

    // Another program's popup beats them all until the program has looked.
    Popup foreign(session, {100, 100, 600, 600}, Qt::green);
    const auto isRight = [&] {
        return sizesOf(seam.windows()) == all &&
               session.client().isAbove(seam.windows().constFirst().id, foreign.id());
    };
    EVENTUALLY(isRight());
    QVERIFY(session.screenshot().count(Qt::red, menu) == 0);
    foreign.raise();
    EVENTUALLY(isRight());
}

void SeamScenarios::aMenuThatOpensUnderAnOverlayIsBroughtUp()
{
    // What Qt itself stacks is put right, too: here the slab's place, which its menu then has to be above.
    DesktopSession session;
    Seam seam(session);
    seam.tell("move 200 500");
    seam.tell("show");
    seam.tell("overlay");
    EVENTUALLY(seam.windows().size() == 2);
    seam.tell("lowered menu 250 300");
    EVENTUALLY(seam.windows().size() == 3);
    EVENTUALLY(seam.windows().constLast().geometry.topLeft() == QPoint(250, 300));
}

void SeamScenarios::theMainScreenIsThatOfTheKeyboard()
{
    DesktopSession session({.screens = {kLeft, kRight}});
    Seam seam(session);
    seam.tell("show");
    QCOMPARE(seam.tell("main"), QString("DUMMY0"));
    WindowBeneath right(session, {1400, 100, 500, 500}, Qt::blue);
    QVERIFY(right.takeFocus());
    QCOMPARE(seam.tell("main"), QString("DUMMY1"));
    WindowBeneath astride(session, {1000, 100, 500, 500}, Qt::green);
    QVERIFY(astride.takeFocus());
    QCOMPARE(seam.tell("main"), QString("DUMMY0"));
}

void SeamScenarios::whereNoWindowHasTheKeyboardThePrimaryScreenIsTheMainOne()
{
    // A window manager would not leave it at that.
    DesktopSession session({.screens = {kLeft, kRight}, .windowManager = WindowManager::None});
    Seam seam(session);
    seam.tell("show");
    WindowBeneath right(session, {1400, 100, 500, 500}, Qt::blue);
    for (const xcb_window_t nobody : {xcb_window_t{XCB_INPUT_FOCUS_POINTER_ROOT},
                                      xcb_window_t{XCB_INPUT_FOCUS_NONE}, session.client().root()}) {
        QVERIFY(right.takeFocus());
        QCOMPARE(seam.tell("main"), QString("DUMMY1"));
        session.client().setInputFocus(nobody);
        QCOMPARE(seam.tell("main"), QString("DUMMY0"));
    }
}

void SeamScenarios::panelsAreLeftOut_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QList<quint32>>("strut");
    QTest::addColumn<QRect>("panel");
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

void SeamScenarios::panelsAreLeftOut()
{
    QFETCH(QByteArray, property);
    QFETCH(QList<quint32>, strut);
    QFETCH(QRect, panel);
    QFETCH(QString, first);
    QFETCH(QString, second);
    DesktopSession session({.screens = {kLeft, kRight}});
    Seam seam(session, {{"QT_SCREEN_SCALE_FACTORS", "DUMMY0=1;DUMMY1=2"}});
    QCOMPARE(seam.tell("visible 0"), QString("0 0 1280 1024"));
    QCOMPARE(seam.tell("visible 1"), QString("1280 574 800 450"));
    const Dock dock(session, panel, property, strut);
    QCOMPARE(seam.tell("visible 0"), first);
    QCOMPARE(seam.tell("visible 1"), second);
}

void SeamScenarios::withoutAWindowManagerThereAreNoPanels()
{
    DesktopSession session({.windowManager = WindowManager::None});
    Seam seam(session);
    QCOMPARE(seam.tell("visible 0"), QString("0 0 1920 1080"));
}

void SeamScenarios::theEmbeddingTrayComesAndGoes()
{
    DesktopSession session;
    Seam seam(session);
    QCOMPARE(seam.tell("tray"), QString("0 0"));
    {
        Client host(session.display().name());
        const xcb_window_t window = xcb_generate_id(host.connection());
        xcb_create_window(host.connection(), XCB_COPY_FROM_PARENT, window, host.root(), 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_set_selection_owner(host.connection(), window, host.atom("_NET_SYSTEM_TRAY_S0"),
                                XCB_CURRENT_TIME);
        host.roundTrip();
        EVENTUALLY(seam.tell("tray") == "1 1");
        // The compositor is another matter.
        session.stopCompositor();
        EVENTUALLY(!session.isComposited());
        QCOMPARE(seam.tell("tray"), QString("1 1"));
    }
    EVENTUALLY(seam.tell("tray") == "0 2");
}

void SeamScenarios::theWindowOutlivesItsScreen()
{
    DesktopSession session({.screens = {kLeft, kRight}});
    Seam seam(session);
    seam.tell("move 1400 300");
    seam.tell("show");
    EVENTUALLY(seam.red() == QRect(1400, 424, 150, 300));
    session.display().unplug(1);
    EVENTUALLY(seam.tell("screens") == "1");
    seam.tell("move 100 200");
    EVENTUALLY(seam.red() == QRect(100, 524, 150, 300));
    // Above others, and clicked through around it, as before.
    WindowBeneath beneath(session, kLeft, Qt::blue);
    EVENTUALLY(seam.red() == QRect(100, 524, 150, 300));
    QVERIFY(session.pointer().clickAt({98, 600}));
    EVENTUALLY(beneath.presses() == QList<QPoint>{QPoint(98, 600)});

    // Every screen off, and another one on.
    session.display().unplug(0);
    EVENTUALLY(seam.tell("screens") == "0");
    QCOMPARE(seam.tell("main"), QString("none"));
    session.display().plug(0, kLeft);
    EVENTUALLY(seam.tell("main") == "DUMMY0");
    seam.tell("move 300 200");
    EVENTUALLY(seam.red() == QRect(300, 524, 150, 300));
    const QPoint beside(298, 600);
    beneath.forget();
    QVERIFY(session.pointer().clickAt(beside));
    EVENTUALLY(beneath.presses() == QList<QPoint>{beside});
}

QTEST_GUILESS_MAIN(SeamScenarios)
#include "seam_scenarios.moc"
