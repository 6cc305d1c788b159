// The icon in a tray of the older kind.

#include "presentation.h"
#include "registered_test.h"
#include "rig/embedding_tray.h"
#include "rig/grab_probe.h"
#include "rig/tray_watcher.h"

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

namespace {

constexpr QPoint kTrayPlace(200, 1000);
/// Two places on the icon, so far from each other that clicks on both are no double click.
constexpr QPoint kHere(203, 1003);
constexpr QPoint kThere(220, 1020);

/// A presentation on a desktop that had its tray before the program came: one that comes later tells so in
/// two ways, and Qt docks its icon twice.
struct DockedPresentation
{
    DockedPresentation()
        : beneath(session, VirtualDisplay::kFullHd, Qt::blue)
        , tray(session, kTrayPlace)
    {
        tray.start();
        program.emplace(session);
        if (!beneath.takeFocus() || !program->waitUntilReady() ||
            !eventually([this] { return tray.icon().has_value(); }))
            throw RigError("the presentation does not start");
    }

    QList<xcb_window_t> shownWindows()
    {
        QList<xcb_window_t> shown;
        for (const WindowInfo &window : session.client().windowsOfProcess(program->processId())) {
            if (window.viewable && !window.inputOnly)
                shown.append(window.id);
        }
        return shown;
    }

    DesktopSession session;
    WindowBeneath beneath;
    EmbeddingTray tray;
    std::optional<Program> program;
};

} // namespace

class TrayEmbeddingScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theIconIsDockedWheneverTheTrayComes_data();
    void theIconIsDockedWheneverTheTrayComes();
    void theIconIsDockedAgainInTheNextTray();
    void aWatcherThatIsLeftOverDoesNotHinder();
    void aClickOnTheIconOpensOneMenu_data();
    void aClickOnTheIconOpensOneMenu();
};

void TrayEmbeddingScenarios::theIconIsDockedWheneverTheTrayComes_data()
{
    QTest::addColumn<bool>("trayIsFirst");
    QTest::addColumn<bool>("hasBus");
    QTest::newRow("tray first") << true << true;
    QTest::newRow("tray later") << false << true;
    QTest::newRow("tray first, no session bus") << true << false;
    QTest::newRow("tray later, no session bus") << false << false;
}

void TrayEmbeddingScenarios::theIconIsDockedWheneverTheTrayComes()
{
    QFETCH(bool, trayIsFirst);
    QFETCH(bool, hasBus);
    DesktopSession session;
    EmbeddingTray tray(session, kTrayPlace);
    if (trayIsFirst)
        tray.start();
    QMap<QString, QString> environment;
    if (!hasBus)
        environment.insert("DBUS_SESSION_BUS_ADDRESS", "unix:path=/dev/null/no-bus");
    Program program(session, environment);
    QVERIFY(program.waitUntilReady());
    if (!trayIsFirst)
        tray.start();
    EVENTUALLY(tray.icon().has_value());
    QVERIFY(program.output().isEmpty());
}

void TrayEmbeddingScenarios::theIconIsDockedAgainInTheNextTray()
{
    Presentation on;
    EmbeddingTray tray(on.session, kTrayPlace);
    for (int start = 0; start < 3; ++start) {
        tray.start();
        EVENTUALLY(tray.icon().has_value());
        tray.stop();
        EVENTUALLY(!on.session.client().selectionHasOwner("_NET_SYSTEM_TRAY_S0"));
    }
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
}

void TrayEmbeddingScenarios::aWatcherThatIsLeftOverDoesNotHinder()
{
    DesktopSession session;
    TrayWatcher watcher(session);
    watcher.start();
    EmbeddingTray tray(session, kTrayPlace);
    tray.start();
    Program program(session);
    QVERIFY(program.waitUntilReady());
    EVENTUALLY(tray.icon().has_value());
    QVERIFY(watcher.items().isEmpty());
}

void TrayEmbeddingScenarios::aClickOnTheIconOpensOneMenu_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("left") << int(Pointer::Left);
    QTest::newRow("right") << int(Pointer::Right);
}

void TrayEmbeddingScenarios::aClickOnTheIconOpensOneMenu()
{
    QFETCH(int, button);
    DockedPresentation on;
    const qsizetype withoutMenu = on.shownWindows().size();
    QVERIFY(on.session.pointer().clickAt(kHere, button));
    EVENTUALLY(on.shownWindows().size() > withoutMenu && !canGrabKeyboard(on.session));
    // Longer than from a press to its release, which might open another one.
    THROUGHOUT(200ms, on.shownWindows().size() == withoutMenu + 1);
    QVERIFY(on.beneath.hasFocus());
    on.session.keyboard().tap(Key::Escape);
    EVENTUALLY(on.shownWindows().size() == withoutMenu);
    on.session.keyboard().tap(Key::A);
    EVENTUALLY(on.beneath.pressedKeys() == QList<Key>{Key::A});

    QVERIFY(on.session.pointer().clickAt(kThere, button));
    EVENTUALLY(on.shownWindows().size() > withoutMenu && !canGrabKeyboard(on.session));
    on.session.keyboard().chord({Key::Ctrl}, Key::Q);
    QCOMPARE(on.program->waitForExit(), std::optional(0));
}

REGISTER_GUILESS_TEST(TrayEmbeddingScenarios)
#include "tray_embedding_scenarios.moc"
