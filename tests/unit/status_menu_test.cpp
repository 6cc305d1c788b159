#include "registered_test.h"
#include "status_menu_fixture.h"

#include <QSet>
#include <QTest>

using namespace zeigewerk;
using namespace zeigewerk::test;

namespace {

QStringList titles(const QMenu &menu)
{
    QStringList list;
    for (const QAction *action : menu.actions())
        list += action->isSeparator() ? kLine : action->text();
    return list;
}

} // namespace

class StatusMenuTest : public QObject
{
    Q_OBJECT

public:
    static void initMain() { qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/dev/null/no-bus"); }

private Q_SLOTS:
    void bothMenusHaveTheItemsInTheirOrder();
    void anUpdateFeedAddsAnItem_data();
    void anUpdateFeedAddsAnItem();
    void checkMarksShowTheFlags_data();
    void checkMarksShowTheFlags();
    void settingsHaveTheirCheckMarksFromTheStart();
    void onlyFlagsHaveCheckMarks();
    void theToolbarItemSaysWhatItWillDo();
    void hintsAreDisabled();
    void rebuildingTouchesOnlyWhatChanged();
    void rebuildingKeepsTheSameItems();
    void rebuildingBeforeLaunchDoesNothing();
    void everyActiveEntryHasAUniqueName();
    void triggeringANameActsLikeAClick();
    void anUnknownNameDoesNothing();
};

void StatusMenuTest::bothMenusHaveTheItemsInTheirOrder()
{
    Controller controller;
    const QStringList expected = {kDraw,     kSpot,     kBoard,    kClicks,   kPin,  kRing,
                                  kFade,     kDark,     kLine,     kClearAll, kHide, kLine,
                                  kHints[0], kHints[1], kHints[2], kLine,     kQuit};
    QCOMPARE(titles(menuOf(controller).trayMenu()), expected);
    QCOMPARE(titles(menuOf(controller).popupMenu()), expected);
}

void StatusMenuTest::anUpdateFeedAddsAnItem_data()
{
    QTest::addColumn<QString>("feedUrl");
    // Its text does not matter. The previous test covers the menu without a feed.
    for (const char *feedUrl : {"https://zeigewerk.example/appcast.xml", "nonsense", ""})
        QTest::newRow(feedUrl) << QString::fromLatin1(feedUrl);
}

void StatusMenuTest::anUpdateFeedAddsAnItem()
{
    QFETCH(QString, feedUrl);
    Controller controller;
    QVERIFY(!controller.app().hasUpdater());
    QStringList expected = titles(menuOf(controller).trayMenu());
    QCOMPARE(expected.size(), 17);
    expected.insert(16, kUpdates);

    Controller updatable;
    updatable.info.feedUrl = feedUrl;
    QVERIFY(updatable.app().hasUpdater());
    for (QMenu *menu : {&menuOf(updatable).trayMenu(), &menuOf(updatable).popupMenu()}) {
        QCOMPARE(titles(*menu), expected);
        const QAction *action = menu->actions().at(16);
        QVERIFY(action->isEnabled());
        QVERIFY(!action->isCheckable());
        QVERIFY(action->shortcut().isEmpty());
    }
    QCOMPARE(menuOf(updatable).trayMenu().actions().at(17)->shortcut(),
             QKeySequence(QStringLiteral("Ctrl+Q")));
    // The entries still show the state.
    updatable.app().toggleSpot();
    QVERIFY(item(updatable, kSpot).isChecked());
}

void StatusMenuTest::checkMarksShowTheFlags_data()
{
    QTest::addColumn<QString>("operations");
    QTest::addColumn<QStringList>("expected");

    // A table, one row per line.
    // clang-format off
    QTest::newRow("nothing on")           << ""       << QStringList{};
    QTest::newRow("drawing")              << "d"      << QStringList{kDraw};
    QTest::newRow("drawing off again")    << "dd"     << QStringList{};
    QTest::newRow("spotlight")            << "s"      << QStringList{kSpot};
    QTest::newRow("whiteboard")           << "w"      << QStringList{kBoard};
    QTest::newRow("clicks")               << "k"      << QStringList{kClicks};
    QTest::newRow("ring")                 << "r"      << QStringList{kRing};
    QTest::newRow("pin")                  << "dp"     << QStringList{kPin};
    QTest::newRow("pin refused")          << "p"      << QStringList{};
    QTest::newRow("pin ended by drawing") << "dpd"    << QStringList{kDraw};
    QTest::newRow("all modes that can be combined") << "dswkr"  << QStringList{kDraw, kSpot, kBoard, kClicks, kRing};
    QTest::newRow("Esc")                  << "dswkre" << QStringList{kClicks, kRing};
    // clang-format on
}

void StatusMenuTest::checkMarksShowTheFlags()
{
    QFETCH(QString, operations);
    QFETCH(QStringList, expected);
    Controller controller;
    controller.defaults.setBool(kDarkUIKey, false);
    controller.perform(operations);
    QCOMPARE(checkedTitles(menuOf(controller).trayMenu()), expected);
    QCOMPARE(checkedTitles(menuOf(controller).popupMenu()), expected);
}

void StatusMenuTest::settingsHaveTheirCheckMarksFromTheStart()
{
    for (const bool isDark : {false, true}) {
        for (const bool fades : {false, true}) {
            Controller controller;
            controller.defaults.setBool(kDarkUIKey, isDark);
            controller.defaults.setBool(kAutoFadeKey, fades);
            QCOMPARE(item(controller, kDark).isChecked(), isDark);
            QCOMPARE(item(controller, kFade).isChecked(), fades);
        }
    }
}

void StatusMenuTest::onlyFlagsHaveCheckMarks()
{
    Controller controller;
    const QStringList withMark = {kDraw, kSpot, kBoard, kClicks, kPin, kRing, kFade, kDark};
    for (const QAction *action : menuOf(controller).trayMenu().actions())
        QCOMPARE(action->isCheckable(), withMark.contains(action->text()));
}

void StatusMenuTest::theToolbarItemSaysWhatItWillDo()
{
    Controller controller;
    QVERIFY(controller.app().toolbarVisible());
    item(controller, kHide).trigger();
    QVERIFY(!controller.app().toolbarVisible());
    QVERIFY(!titles(menuOf(controller).trayMenu()).contains(kHide));
    item(controller, kShow).trigger();
    QVERIFY(controller.app().toolbarVisible());
    QVERIFY(titles(menuOf(controller).trayMenu()).contains(kHide));

    controller.app().toggleToolbar();
    QVERIFY(titles(menuOf(controller).trayMenu()).contains(kShow));
}

void StatusMenuTest::hintsAreDisabled()
{
    Controller controller;
    for (const QAction *action : menuOf(controller).trayMenu().actions())
        QCOMPARE(action->isEnabled(), !kHints.contains(action->text()));
}

void StatusMenuTest::rebuildingTouchesOnlyWhatChanged()
{
    Controller controller;
    QStringList touched;
    for (QAction *action : menuOf(controller).trayMenu().actions())
        connect(action, &QAction::changed, this, [&touched, action] { touched += action->text(); });
    controller.app().rebuildMenu();
    QCOMPARE(touched, QStringList());
    controller.app().toggleSpot();
    QCOMPARE(touched, QStringList{kSpot});
}

void StatusMenuTest::rebuildingKeepsTheSameItems()
{
    Controller controller;
    StatusMenu &menu = menuOf(controller);
    const QList<QAction *> actions = menu.trayMenu().actions();
    const auto objects = menu.findChildren<QObject *>().size();
    const auto trayObjects = menu.trayMenu().findChildren<QObject *>().size();
    for (int i = 0; i < 500; ++i) {
        controller.app().toggleSpot();
        item(controller, kClicks).trigger();
    }
    QCOMPARE(menu.trayMenu().actions(), actions);
    QCOMPARE(menu.popupMenu().actions(), actions);
    QCOMPARE(menu.findChildren<QObject *>().size(), objects);
    QCOMPARE(menu.trayMenu().findChildren<QObject *>().size(), trayObjects);
}

void StatusMenuTest::rebuildingBeforeLaunchDoesNothing()
{
    Controller controller;
    AppDelegate app(controller.desktop, controller.defaults);
    app.rebuildMenu();
    app.openStatusMenu();
    QVERIFY(!app.statusItem());
    QVERIFY(!QApplication::activePopupWidget());
}

void StatusMenuTest::everyActiveEntryHasAUniqueName()
{
    Controller controller;
    QStringList names;
    for (const QAction *action : menuOf(controller).trayMenu().actions()) {
        const bool isOnlyShown = action->isSeparator() || kHints.contains(action->text());
        QCOMPARE(action->objectName().isEmpty(), isOnlyShown);
        if (!isOnlyShown)
            names += action->objectName();
    }
    QCOMPARE(QSet<QString>(names.begin(), names.end()).size(), names.size());
}

void StatusMenuTest::triggeringANameActsLikeAClick()
{
    Controller controller;
    QVERIFY(menuOf(controller).trigger(QStringLiteral("spotlight")));
    QCOMPARE(checkedTitles(menuOf(controller).trayMenu()), flagsOn(controller.app()));
    QVERIFY(controller.app().spotlightOn());
    QVERIFY(menuOf(controller).trigger(QStringLiteral("spotlight")));
    QVERIFY(!controller.app().spotlightOn());
    // It is refused, so it has no check mark.
    QVERIFY(menuOf(controller).trigger(QStringLiteral("pin")));
    QCOMPARE(checkedTitles(menuOf(controller).trayMenu()), flagsOn(controller.app()));
}

void StatusMenuTest::anUnknownNameDoesNothing()
{
    Controller controller;
    const QStringList before = flagsOn(controller.app());
    for (const QString &name : {QString(), QStringLiteral("fly"), QStringLiteral("Draw"), kDraw, kHints[0]})
        QVERIFY(!menuOf(controller).trigger(name));
    QCOMPARE(flagsOn(controller.app()), before);
}

REGISTER_TEST(StatusMenuTest)
#include "status_menu_test.moc"
