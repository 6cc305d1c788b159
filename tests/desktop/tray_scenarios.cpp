// The item in the tray when trays start and stop.

#include "registered_test.h"
#include "tray_presentation.h"

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

class TrayScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anExistingTrayShowsTheItem();
    void aWatcherAloneIsNotATray();
    void aRestartedTrayShowsTheItemAgain_data();
    void aRestartedTrayShowsTheItemAgain();
    void aWatcherThatTakesOverGetsTheItem();
    void twoHostsShowTheItem();
    void theItemLeavesWithTheProgram();
    void withoutATrayTheProgramWorks_data();
    void withoutATrayTheProgramWorks();
    void theProgramSurvivesTheSessionBus_data();
    void theProgramSurvivesTheSessionBus();

private:
    /// Whether hot keys work, which proves that the program does.
    static bool canDraw(Presentation &show)
    {
        show.hotKey(Key::D);
        if (!eventually([&] { return show.hasKeyboard(); }))
            return false;
        show.hotKey(Key::D);
        return eventually([&] { return show.beneath.hasFocus(); });
    }
};

void TrayScenarios::anExistingTrayShowsTheItem()
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

void TrayScenarios::aWatcherAloneIsNotATray()
{
    Presentation show;
    Tray tray(show.session);
    tray.watcher.start();
    // The program reacts to a new watcher within milliseconds, so it would have registered by now.
    THROUGHOUT(500ms, tray.watcher.items().isEmpty());
    tray.host.start();
    EVENTUALLY(tray.host.items().size() == 1);
    QVERIFY(canDraw(show));
}

void TrayScenarios::aRestartedTrayShowsTheItemAgain_data()
{
    QTest::addColumn<bool>("watcherRestarts");
    QTest::addColumn<bool>("hostRestarts");
    QTest::newRow("both") << true << true;
    QTest::newRow("the watcher") << true << false;
    QTest::newRow("the host") << false << true;
}

void TrayScenarios::aRestartedTrayShowsTheItemAgain()
{
    QFETCH(bool, watcherRestarts);
    QFETCH(bool, hostRestarts);
    TrayPresentation show;
    for (int restart = 0; restart < 2; ++restart) {
        if (hostRestarts)
            show.tray.host.stop();
        if (watcherRestarts) {
            show.tray.watcher.stop();
            QVERIFY(show.tray.host.items().isEmpty());
            show.tray.watcher.start();
        }
        if (hostRestarts)
            show.tray.host.start();
        QList<TrayItem> items;
        EVENTUALLY((items = show.tray.host.items()).size() == 1);
        QVERIFY(!show.tray.host.menu(items.first()).isEmpty());
    }
    QVERIFY(canDraw(show));
}

void TrayScenarios::aWatcherThatTakesOverGetsTheItem()
{
    TrayPresentation show;
    TrayWatcher successor(show.session);
    successor.start();
    QVERIFY(successor.items().isEmpty());
    // The name passes from one to the other without being free in between.
    show.tray.watcher.stop();
    EVENTUALLY(successor.items().size() == 1);
    EVENTUALLY(show.tray.host.items().size() == 1);
    show.item = show.tray.host.items().first();
    QVERIFY(show.click(label::kDraw));
    EVENTUALLY(show.hasKeyboard());
    EVENTUALLY(show.isChecked(label::kDraw));
}

void TrayScenarios::twoHostsShowTheItem()
{
    TrayPresentation show;
    TrayHost second(show.session);
    second.start();
    EVENTUALLY(second.items().size() == 1);
    QCOMPARE(show.tray.host.items().size(), 1);
    // A click in one of them is reported to both.
    const auto spot = show.entry(label::kSpot);
    QVERIFY(spot);
    QVERIFY(second.click(second.items().first(), spot->id));
    EVENTUALLY(show.pixel({10, 1000}) == dimmed(show.beneathColor()));
    EVENTUALLY(show.tray.host.reportedToggleStates(spot->id) == QList<int>{1});
    EVENTUALLY(second.reportedToggleStates(spot->id) == QList<int>{1});
}

void TrayScenarios::theItemLeavesWithTheProgram()
{
    TrayPresentation show;
    QCOMPARE(show.program.terminate(), std::optional(0));
    EVENTUALLY(show.tray.watcher.items().isEmpty());
    QVERIFY(show.program.output().isEmpty());
}

void TrayScenarios::withoutATrayTheProgramWorks_data()
{
    QTest::addColumn<QString>("bus");
    QTest::newRow("a session bus without a tray") << QString();
    QTest::newRow("no session bus") << QString("unix:path=/dev/null/no-bus");
}

void TrayScenarios::withoutATrayTheProgramWorks()
{
    QFETCH(QString, bus);
    QMap<QString, QString> environment;
    if (!bus.isEmpty())
        environment.insert("DBUS_SESSION_BUS_ADDRESS", bus);
    Presentation show({}, environment);
    QVERIFY(canDraw(show));
    QVERIFY(show.program.output().isEmpty());
}

void TrayScenarios::theProgramSurvivesTheSessionBus_data()
{
    QTest::addColumn<bool>("isInTray");
    QTest::newRow("in the tray") << true;
    QTest::newRow("waiting for a tray") << false;
}

void TrayScenarios::theProgramSurvivesTheSessionBus()
{
    QFETCH(bool, isInTray);
    Presentation show;
    Tray tray(show.session);
    if (isInTray) {
        tray.start();
        EVENTUALLY(tray.watcher.items().size() == 1);
    }
    show.session.stopBus();
    QVERIFY(canDraw(show));
    QVERIFY(canDraw(show));
    QCOMPARE(show.program.terminate(), std::optional(0));
}

REGISTER_GUILESS_TEST(TrayScenarios)
#include "tray_scenarios.moc"
