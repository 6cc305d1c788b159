// What the items of the status menu do.

#include "registered_test.h"
#include "status_menu_fixture.h"

#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <functional>

using namespace zeigewerk;
using namespace zeigewerk::test;

namespace {

/// Counts the requests to quit the application, and blocks them.
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

/// Whether `act`, called in the event loop, asks the application to quit.
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

class StatusMenuClicksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachItemPerformsItsOperation_data();
    void eachItemPerformsItsOperation();
    void clearingEmptiesTheCanvas();
    void aRefusedPinIsNotChecked();
    void theTrayIsNotifiedThatARefusedPinIsNotChecked();
    void checkingForUpdatesOpensTheDialog();
    void theQuitItemQuits();
    void ctrlQQuitsOnlyWhileTheMenuIsOpen();
    void theMenuOpensAtThePointer();
};

void StatusMenuClicksTest::eachItemPerformsItsOperation_data()
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
        row(kClearAll, &AppDelegate::clearAll, before);
        row(kHide, &AppDelegate::toggleToolbar, before);
    }
}

void StatusMenuClicksTest::eachItemPerformsItsOperation()
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
    // The menu follows, however the operation was started.
    QCOMPARE(checkedTitles(menuOf(expected).trayMenu()), flagsOn(expected.app()));
}

void StatusMenuClicksTest::clearingEmptiesTheCanvas()
{
    Controller controller;
    controller.app().toggleDraw();
    controller.draw(controller.view());
    QCOMPARE(controller.view().shapes().size(), 1U);
    item(controller, kClearAll).trigger();
    QVERIFY(controller.view().shapes().empty());
    QVERIFY(controller.app().drawOn());
}

void StatusMenuClicksTest::aRefusedPinIsNotChecked()
{
    Controller controller;
    item(controller, kPin).trigger();
    QVERIFY(!controller.app().pinnedOn());
    QVERIFY(!item(controller, kPin).isChecked());
}

void StatusMenuClicksTest::theTrayIsNotifiedThatARefusedPinIsNotChecked()
{
    // Qt notifies the tray of each change of an action; a tray may have set the check mark itself on the
    // click.
    Controller controller;
    QAction &pin = item(controller, kPin);
    QList<bool> notified;
    connect(&pin, &QAction::changed, this, [&] { notified.append(pin.isChecked()); });
    pin.trigger();
    QCOMPARE(notified, QList<bool>({true, false}));
}

void StatusMenuClicksTest::checkingForUpdatesOpensTheDialog()
{
    Controller controller;
    controller.info.feedUrl = QStringLiteral("nonsense");
    item(controller, kClearAll);
    controller.desktop.takeLog();
    item(controller, kUpdates).trigger();
    QVERIFY(controller.desktop.takeLog().contains(QStringLiteral("dialog 0: order front")));

    // Without a feed, there is nothing to check.
    Controller without;
    without.app();
    without.desktop.takeLog();
    without.app().checkForUpdates();
    QCOMPARE(without.desktop.takeLog(), QStringList());
}

void StatusMenuClicksTest::theQuitItemQuits()
{
    Controller controller;
    QCOMPARE(item(controller, kQuit).shortcut(), QKeySequence(QStringLiteral("Ctrl+Q")));
    QVERIFY(item(controller, kQuit).isShortcutVisibleInContextMenu());
    QVERIFY(!quitsAfter([] {}));
    QVERIFY(quitsAfter([&] { item(controller, kQuit).trigger(); }));
}

void StatusMenuClicksTest::ctrlQQuitsOnlyWhileTheMenuIsOpen()
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

void StatusMenuClicksTest::theMenuOpensAtThePointer()
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

REGISTER_TEST(StatusMenuClicksTest)
#include "status_menu_clicks_test.moc"
