// The item in the tray, whatever comes and goes.

#include "registered_test.h"
#include "tray_presentation.h"

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

class TrayScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aTrayThatIsThereShowsTheItem();
    void aWatcherAloneIsNoTray();
    void aTrayThatRestartsShowsTheItemAgain_data();
    void aTrayThatRestartsShowsTheItemAgain();
    void aWatcherThatTakesOverGetsTheItem();
    void twoHostsShowTheItem();
    void theItemLeavesWithTheProgram();
    void withoutATrayTheProgramWorks_data();
    void withoutATrayTheProgramWorks();
    void theProgramOutlivesTheSessionBus_data();
    void theProgramOutlivesTheSessionBus();

private:
    /// Whether hot keys do what they should, to tell that the program works.
    static bool drawsAndEnds(Presentation &on)
    {
        on.hotKey(Key::D);
        if (!eventually([&] { return on.hasKeyboard(); }))
            return false;
        on.hotKey(Key::D);
        return eventually([&] { return on.beneath.hasFocus(); });
    }
};

void TrayScenarios::aTrayThatIsThereShowsTheItem()
{
    DesktopSession session;
    Tray tray(session);
    tray.start();
    Program program(session);
    QList<TrayItem> items;
    EVENTUALLY((items = tray.host.items()).size() == 1);
    const TrayItem &item = items.first();
    QCOMPARE(item.id, "Zeigewerk");
    QCOMPARE(item.title, "Zeigewerk");
    QCOMPARE(item.toolTip, "Zeigewerk");
    QCOMPARE(item.status, "Active");
    QCOMPARE(item.iconName, "");
    for (const int size : {16, 22, 24, 32, 48, 64})
        QVERIFY2(item.iconSizes.contains(QSize(size, size)), qPrintable(QString::number(size)));
    QVERIFY(!tray.host.menu(item).isEmpty());
    QCOMPARE(tray.watcher.registrations(), 1);
    QVERIFY(program.isRunning());
    QVERIFY(program.output().isEmpty());
}

void TrayScenarios::aWatcherAloneIsNoTray()
{
    Presentation on;
    Tray tray(on.session);
    tray.watcher.start();
    // The program answers the watcher's coming within milliseconds; were it to register now, it would have.
    THROUGHOUT(500ms, tray.watcher.items().isEmpty());
    tray.host.start();
    EVENTUALLY(tray.host.items().size() == 1);
    QVERIFY(drawsAndEnds(on));
}

void TrayScenarios::aTrayThatRestartsShowsTheItemAgain_data()
{
    QTest::addColumn<bool>("watcherRestarts");
    QTest::addColumn<bool>("hostRestarts");
    QTest::newRow("both") << true << true;
    QTest::newRow("the watcher") << true << false;
    QTest::newRow("the host") << false << true;
}

void TrayScenarios::aTrayThatRestartsShowsTheItemAgain()
{
    QFETCH(bool, watcherRestarts);
    QFETCH(bool, hostRestarts);
    TrayPresentation on;
    for (int restart = 0; restart < 2; ++restart) {
        if (hostRestarts)
            on.tray.host.stop();
        if (watcherRestarts) {
            on.tray.watcher.stop();
            QVERIFY(on.tray.host.items().isEmpty());
            on.tray.watcher.start();
        }
        if (hostRestarts)
            on.tray.host.start();
        QList<TrayItem> items;
        EVENTUALLY((items = on.tray.host.items()).size() == 1);
        QVERIFY(!on.tray.host.menu(items.first()).isEmpty());
    }
    QVERIFY(drawsAndEnds(on));
}

void TrayScenarios::aWatcherThatTakesOverGetsTheItem()
{
    TrayPresentation on;
    TrayWatcher successor(on.session);
    successor.start();
    QVERIFY(successor.items().isEmpty());
    // The name goes from the one to the other without being free in between.
    on.tray.watcher.stop();
    EVENTUALLY(successor.items().size() == 1);
    EVENTUALLY(on.tray.host.items().size() == 1);
    on.item = on.tray.host.items().first();
    QVERIFY(on.click(label::kDraw));
    EVENTUALLY(on.hasKeyboard());
    EVENTUALLY(on.isChecked(label::kDraw));
}

void TrayScenarios::twoHostsShowTheItem()
{
    TrayPresentation on;
    TrayHost second(on.session);
    second.start();
    EVENTUALLY(second.items().size() == 1);
    QCOMPARE(on.tray.host.items().size(), 1);
    // What one of them clicks, both are told.
    const auto spot = on.entry(label::kSpot);
    QVERIFY(spot);
    QVERIFY(second.click(second.items().first(), spot->id));
    EVENTUALLY(on.pixel({10, 1000}) == dimmed(on.beneathColor()));
    EVENTUALLY(on.tray.host.toggleStatesTold(spot->id) == QList<int>{1});
    EVENTUALLY(second.toggleStatesTold(spot->id) == QList<int>{1});
}

void TrayScenarios::theItemLeavesWithTheProgram()
{
    TrayPresentation on;
    QCOMPARE(on.program.terminate(), std::optional(0));
    EVENTUALLY(on.tray.watcher.items().isEmpty());
    QVERIFY(on.program.output().isEmpty());
}

void TrayScenarios::withoutATrayTheProgramWorks_data()
{
    QTest::addColumn<QString>("bus");
    QTest::newRow("a session bus without one") << QString();
    QTest::newRow("no session bus") << QString("unix:path=/dev/null/no-bus");
}

void TrayScenarios::withoutATrayTheProgramWorks()
{
    QFETCH(QString, bus);
    QMap<QString, QString> environment;
    if (!bus.isEmpty())
        environment.insert("DBUS_SESSION_BUS_ADDRESS", bus);
    Presentation on({}, environment);
    QVERIFY(drawsAndEnds(on));
    QVERIFY(on.program.output().isEmpty());
}

void TrayScenarios::theProgramOutlivesTheSessionBus_data()
{
    QTest::addColumn<bool>("isInTray");
    QTest::newRow("in the tray") << true;
    QTest::newRow("waiting for a tray") << false;
}

void TrayScenarios::theProgramOutlivesTheSessionBus()
{
    QFETCH(bool, isInTray);
    Presentation on;
    Tray tray(on.session);
    if (isInTray) {
        tray.start();
        EVENTUALLY(tray.watcher.items().size() == 1);
    }
    on.session.stopBus();
    QVERIFY(drawsAndEnds(on));
    QVERIFY(drawsAndEnds(on));
    QCOMPARE(on.program.terminate(), std::optional(0));
}

REGISTER_GUILESS_TEST(TrayScenarios)
#include "tray_scenarios.moc"
