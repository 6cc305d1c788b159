#include "commands/status_item.h"
#include "controller_fixture.h"

#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <functional>

using namespace zeigewerk;
using test::Controller;

namespace {

const QString kDraw = QStringLiteral("Zeichnen  ⌃⌥D");
const QString kSpot = QStringLiteral("Spotlight  ⌃⌥S");
const QString kBoard = QStringLiteral("Whiteboard  ⌃⌥W");
const QString kClicks = QStringLiteral("Klicks anzeigen  ⌃⌥K");
const QString kPin = QStringLiteral("Zeichnung anpinnen  ⌃⌥P");
const QString kRing = QStringLiteral("Cursor-Ring");
const QString kFade = QStringLiteral("Auto-Fade (4 s)");
const QString kDark = QStringLiteral("Werkzeugleiste dunkel");
const QString kClear = QStringLiteral("Alles löschen");
const QString kHide = QStringLiteral("Werkzeugleiste ausblenden  ⌃⌥T");
const QString kShow = QStringLiteral("Werkzeugleiste einblenden  ⌃⌥T");
const QStringList kHints = {QStringLiteral("Esc beendet Zeichnen/Spotlight"),
                            QStringLiteral("⌥ + Scrollen: Spotlight-Größe"),
                            QStringLiteral("⇧ beim Zeichnen: gerade Linie / Quadrat / Kreis")};
const QString kQuit = QStringLiteral("Zeigewerk beenden");
const QString kLine; // a separator

StatusMenu &menuOf(Controller &controller)
{
    return controller.app().statusItem()->menu();
}

/// The item with that title; the test ends when there is none.
QAction &item(Controller &controller, const QString &title)
{
    for (QAction *action : menuOf(controller).trayMenu().actions()) {
        if (action->text() == title)
            return *action;
    }
    qFatal("the menu has no item %s", qPrintable(title));
}

QStringList titles(const QMenu &menu)
{
    QStringList list;
    for (const QAction *action : menu.actions())
        list += action->isSeparator() ? kLine : action->text();
    return list;
}

QStringList checkedTitles(const QMenu &menu)
{
    QStringList list;
    for (const QAction *action : menu.actions()) {
        if (action->isChecked())
            list += action->text();
    }
    return list;
}

/// The titles of the flags that are on: what must have a check mark.
QStringList flagsOn(const AppDelegate &app)
{
    QStringList list;
    for (const auto &[isOn, title] : {std::pair{app.drawOn(), kDraw},
                                      {app.spotlightOn(), kSpot},
                                      {app.whiteboardOn(), kBoard},
                                      {app.clicksOn(), kClicks},
                                      {app.pinnedOn(), kPin},
                                      {app.cursorRingOn(), kRing},
                                      {app.autoFadeOn(), kFade},
                                      {app.darkUI(), kDark}}) {
        if (isOn)
            list += title;
    }
    return list;
}

/// Notes that the application is asked to quit, and has it go on.
class QuitRequests : public QObject
{
public:
    QuitRequests() { qApp->installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() != QEvent::Quit)
            return false;
        ++count;
        return true;
    }

    int count = 0;
};

/// Whether the application is asked to quit when that is done while it runs.
bool quitsAfter(const std::function<void()> &act)
{
    QuitRequests requests;
    QTimer::singleShot(0, [&act] {
        act();
        QCoreApplication::exit();
    });
    QCoreApplication::exec();
    return requests.count == 1;
}

} // namespace

class StatusMenuTest : public QObject
{
    Q_OBJECT

public:
    static void initMain() { qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/dev/null/no-bus"); }

private Q_SLOTS:
    void bothMenusHaveTheItemsInTheirOrder();
    void checkMarksAreTheFlags_data();
    void checkMarksAreTheFlags();
    void settingsHaveTheirCheckMarksFromTheStart();
    void onlyFlagsHaveCheckMarks();
    void theToolbarItemSaysWhatItWillDo();
    void hintsAreDisabled();
    void itemsDoWhatTheirOperationsDo_data();
    void itemsDoWhatTheirOperationsDo();
    void clearingWipesTheCanvas();
    void aRefusedPinLeavesNoCheckMark();
    void clickingTellsTheTrayUntilTheCheckMarkIsRight();
    void rebuildingTouchesOnlyWhatChanged();
    void rebuildingKeepsTheSameItems();
    void rebuildingBeforeLaunchDoesNothing();
    void quittingQuits();
    void ctrlQQuitsOnlyWhileTheMenuIsOpen();
    void theMenuOpensAtThePointer();
};

void StatusMenuTest::bothMenusHaveTheItemsInTheirOrder()
{
    Controller controller;
    const QStringList expected = {kDraw,  kSpot, kBoard, kClicks,   kPin,      kRing,     kFade, kDark, kLine,
                                  kClear, kHide, kLine,  kHints[0], kHints[1], kHints[2], kLine, kQuit};
    QCOMPARE(titles(menuOf(controller).trayMenu()), expected);
    QCOMPARE(titles(menuOf(controller).popupMenu()), expected);
}

void StatusMenuTest::checkMarksAreTheFlags_data()
{
    QTest::addColumn<QString>("operations");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("nothing on") << "" << QStringList{};
    QTest::newRow("drawing") << "d" << QStringList{kDraw};
    QTest::newRow("drawing off again") << "dd" << QStringList{};
    QTest::newRow("spotlight") << "s" << QStringList{kSpot};
    QTest::newRow("whiteboard") << "w" << QStringList{kBoard};
    QTest::newRow("clicks") << "k" << QStringList{kClicks};
    QTest::newRow("ring") << "r" << QStringList{kRing};
    QTest::newRow("pin") << "dp" << QStringList{kPin};
    QTest::newRow("pin refused") << "p" << QStringList{};
    QTest::newRow("pin ended by drawing") << "dpd" << QStringList{kDraw};
    QTest::newRow("all that go together") << "dswkr" << QStringList{kDraw, kSpot, kBoard, kClicks, kRing};
    QTest::newRow("Esc") << "dswkre" << QStringList{kClicks, kRing};
}

void StatusMenuTest::checkMarksAreTheFlags()
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
    controller.app().rebuildMenu();
    QVERIFY(titles(menuOf(controller).trayMenu()).contains(kShow));
}

void StatusMenuTest::hintsAreDisabled()
{
    Controller controller;
    for (const QAction *action : menuOf(controller).trayMenu().actions())
        QCOMPARE(action->isEnabled(), !kHints.contains(action->text()));
}

void StatusMenuTest::itemsDoWhatTheirOperationsDo_data()
{
    using Operation = void (AppDelegate::*)();
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("before");
    QTest::addColumn<std::function<void(AppDelegate &)>>("operation");

    const auto row = [](const QString &title, Operation operation, const QString &before) {
        QTest::addRow("%s after \"%s\"", qPrintable(title), qPrintable(before))
            << title << before << std::function([operation](AppDelegate &app) { (app.*operation)(); });
    };
    for (const char *before : {"", "d", "w", "s", "dp", "kr"}) {
        row(kDraw, &AppDelegate::toggleDraw, before);
        row(kSpot, &AppDelegate::toggleSpot, before);
        row(kBoard, &AppDelegate::toggleBoard, before);
        row(kClicks, &AppDelegate::toggleClicks, before);
        row(kPin, &AppDelegate::togglePin, before);
        row(kRing, &AppDelegate::toggleRing, before);
        row(kFade, &AppDelegate::toggleFade, before);
        row(kDark, &AppDelegate::toggleDarkUI, before);
        row(kClear, &AppDelegate::clearAll, before);
        row(kHide, &AppDelegate::toggleToolbar, before);
    }
}

void StatusMenuTest::itemsDoWhatTheirOperationsDo()
{
    QFETCH(QString, title);
    QFETCH(QString, before);
    QFETCH(std::function<void(AppDelegate &)>, operation);
    Controller expected;
    Controller clicked;
    for (Controller *controller : {&expected, &clicked}) {
        controller->perform(before);
        controller->desktop.takeLog();
    }
    operation(expected.app());
    item(clicked, title).trigger();

    QCOMPARE(flagsOn(clicked.app()), flagsOn(expected.app()));
    QCOMPARE(clicked.app().toolbarVisible(), expected.app().toolbarVisible());
    QCOMPARE(clicked.desktop.takeLog(), expected.desktop.takeLog());
    QCOMPARE(checkedTitles(menuOf(clicked).trayMenu()), flagsOn(clicked.app()));
}

void StatusMenuTest::clearingWipesTheCanvas()
{
    Controller controller;
    controller.app().toggleDraw();
    controller.draw(controller.view());
    QCOMPARE(controller.view().shapes().size(), 1U);
    item(controller, kClear).trigger();
    QVERIFY(controller.view().shapes().empty());
    QVERIFY(controller.app().drawOn());
}

void StatusMenuTest::aRefusedPinLeavesNoCheckMark()
{
    Controller controller;
    item(controller, kPin).trigger();
    QVERIFY(!controller.app().pinnedOn());
    QVERIFY(!item(controller, kPin).isChecked());
}

void StatusMenuTest::clickingTellsTheTrayUntilTheCheckMarkIsRight()
{
    // Qt tells the tray of each change of an action, and a tray may have set the mark itself at the click.
    Controller controller;
    QAction &pin = item(controller, kPin);
    QList<bool> told;
    connect(&pin, &QAction::changed, this, [&] { told.append(pin.isChecked()); });
    pin.trigger();
    QCOMPARE(told, QList<bool>({true, false}));
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

void StatusMenuTest::quittingQuits()
{
    Controller controller;
    QCOMPARE(item(controller, kQuit).shortcut(), QKeySequence(QStringLiteral("Ctrl+Q")));
    QVERIFY(item(controller, kQuit).isShortcutVisibleInContextMenu());
    QVERIFY(!quitsAfter([] {}));
    QVERIFY(quitsAfter([&] { item(controller, kQuit).trigger(); }));
}

void StatusMenuTest::ctrlQQuitsOnlyWhileTheMenuIsOpen()
{
    Controller controller;
    controller.app();
    QLineEdit other;
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    const auto pressIn = [](QWidget &widget, Qt::KeyboardModifiers modifiers) {
        return [&widget, modifiers] { QTest::keyClick(widget.windowHandle(), Qt::Key_Q, modifiers); };
    };
    QMenu &menu = menuOf(controller).popupMenu();

    QVERIFY(!quitsAfter(pressIn(other, Qt::ControlModifier)));
    controller.app().openStatusMenu();
    QVERIFY(menu.isVisible());
    QVERIFY(!quitsAfter(pressIn(menu, Qt::NoModifier)));
    QVERIFY(!quitsAfter(pressIn(menu, Qt::ControlModifier | Qt::ShiftModifier)));
    QVERIFY(menu.isVisible());
    QVERIFY(quitsAfter(pressIn(menu, Qt::ControlModifier)));
    QVERIFY(!menu.isVisible());

    QVERIFY(!quitsAfter(pressIn(other, Qt::ControlModifier)));
}

void StatusMenuTest::theMenuOpensAtThePointer()
{
    Controller controller;
    controller.app();
    QMenu &menu = menuOf(controller).popupMenu();
    for (const QPoint place : {QPoint(50, 60), QPoint(120, 90)}) {
        QCursor::setPos(place);
        controller.app().openStatusMenu();
        QVERIFY(menu.isVisible());
        QCOMPARE(menu.pos(), place);
    }
    QTest::keyClick(&menu, Qt::Key_Escape);
    QVERIFY(!menu.isVisible());
}

QTEST_MAIN(StatusMenuTest)
#include "status_menu_test.moc"
