// The icon in a system tray of the older kind (XEmbed).

#include "presentation.h"
#include "registered_test.h"
#include "rig/embedding_tray.h"
#include "rig/grab_probe.h"
#include "rig/tray_watcher.h"

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

namespace {

constexpr QPoint kTrayPlace(200, 1000);
/// Two places on the icon, far enough apart not to make a double click.
constexpr QPoint kFirstClick(203, 1003);
constexpr QPoint kSecondClick(220, 1020);

/// A presentation on a desktop whose tray was there before the program started. Qt docks its icon twice in a
/// tray that starts later, because it is notified in two ways.
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
    void theIconIsDockedWheneverTheTrayStarts_data();
    void theIconIsDockedWheneverTheTrayStarts();
    void theIconIsDockedAgainInTheNextTray();
    void aLeftoverWatcherDoesNotPreventDocking();
    void aClickOnTheIconOpensOneMenu_data();
    void aClickOnTheIconOpensOneMenu();
};

void TrayEmbeddingScenarios::theIconIsDockedWheneverTheTrayStarts_data()
{
    QTest::addColumn<bool>("trayIsFirst");
    QTest::addColumn<bool>("hasBus");
    QTest::newRow("tray first") << true << true;
    QTest::newRow("tray later") << false << true;
    QTest::newRow("tray first, no session bus") << true << false;
    QTest::newRow("tray later, no session bus") << false << false;
}

void TrayEmbeddingScenarios::theIconIsDockedWheneverTheTrayStarts()
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
    Presentation show;
    EmbeddingTray tray(show.session, kTrayPlace);
    for (int start = 0; start < 3; ++start) {
        tray.start();
        EVENTUALLY(tray.icon().has_value());
        tray.stop();
        EVENTUALLY(!show.session.client().selectionHasOwner("_NET_SYSTEM_TRAY_S0"));
    }
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
}

void TrayEmbeddingScenarios::aLeftoverWatcherDoesNotPreventDocking()
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
    DockedPresentation show;
    const qsizetype withoutMenu = show.shownWindows().size();
    QVERIFY(show.session.pointer().clickAt(kFirstClick, button));
    EVENTUALLY(show.shownWindows().size() > withoutMenu && !canGrabKeyboard(show.session));
    // Longer than the time between press and release, which might open another menu.
    THROUGHOUT(200ms, show.shownWindows().size() == withoutMenu + 1);
    QVERIFY(show.beneath.hasFocus());
    show.session.keyboard().tap(Key::Escape);
    EVENTUALLY(show.shownWindows().size() == withoutMenu);
    show.session.keyboard().tap(Key::A);
    EVENTUALLY(show.beneath.pressedKeys() == QList<Key>{Key::A});

    QVERIFY(show.session.pointer().clickAt(kSecondClick, button));
    EVENTUALLY(show.shownWindows().size() > withoutMenu && !canGrabKeyboard(show.session));
    show.session.keyboard().chord({Key::Ctrl}, Key::Q);
    QCOMPARE(show.program->waitForExit(), std::optional(0));
}

REGISTER_GUILESS_TEST(TrayEmbeddingScenarios)
#include "tray_embedding_scenarios.moc"
