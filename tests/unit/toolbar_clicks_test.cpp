// What a click on each button of the toolbar does.

#include "registered_test.h"
#include "toolbar/bar.h"
#include "toolbar_fixture.h"

#include <QContextMenuEvent>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using namespace zeigewerk;
using namespace zeigewerk::test;

class ToolbarClicksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aClickWorksThoughTheWindowIsNotActive();
    void eachButtonDoesWhatItsNameSays_data();
    void eachButtonDoesWhatItsNameSays();
    void pinUndoAndClearActOnTheDrawing();
    void quitEndsTheProgram();
    void theMenuOpensOnTheBackgroundOnly();
};

void ToolbarClicksTest::aClickWorksThoughTheWindowIsNotActive()
{
    Controller controller;
    const Toolbar &bar = *controller.app().toolbar();
    QVERIFY(!bar.panel->isActiveWindow());
    QTest::mouseClick(bar.btnClicks, Qt::LeftButton);
    QVERIFY(controller.app().clicksOn());
    QCOMPARE(bar.btnClicks->focusPolicy(), Qt::NoFocus);
    QTest::mouseClick(bar.btnClicks, Qt::RightButton);
    QVERIFY(controller.app().clicksOn());
}

void ToolbarClicksTest::eachButtonDoesWhatItsNameSays_data()
{
    using App = const AppDelegate &;
    using Check = std::function<bool(App)>;
    QTest::addColumn<Check>("hasHappened");
    const auto row = [](const char *name, const Check &check) { QTest::newRow(name) << check; };
    row("Zeichnen ein/aus (⌃⌥D)", [](App app) { return app.drawOn(); });
    row("Whiteboard (⌃⌥W)", [](App app) { return app.whiteboardOn(); });
    row("Spotlight (⌃⌥S) — Größe ändern: ⌥ + Scrollen", [](App app) { return app.spotlightOn(); });
    row("Klicks anzeigen (⌃⌥K)", [](App app) { return app.clicksOn(); });
    row("Cursor-Ring: Mauszeiger dauerhaft hervorheben", [](App app) { return app.cursorRingOn(); });
    row("Auto-Fade: Zeichnungen lösen sich nach 4 Sekunden auf", [](App app) { return app.autoFadeOn(); });
    row("Textmarker", [](App app) { return app.tool() == Tool::highlighter && app.drawOn(); });
    row("Text (klicken, tippen, Enter)", [](App app) { return app.tool() == Tool::text && app.drawOn(); });
    row("Farbe", [](App app) { return app.color() == kOrange && !app.drawOn(); });
    row("Strichstärke", [](App app) { return app.lineWidth() == 3.0 && !app.drawOn(); });
    row("Werkzeugleiste hell/dunkel", [](App app) { return !app.darkUI(); });
    row("Leiste ausblenden — wieder einblenden mit ⌃⌥T oder übers Menüleisten-Symbol",
        [](App app) { return !app.toolbarVisible() && !app.toolbar()->window->isVisible(); });
}

void ToolbarClicksTest::eachButtonDoesWhatItsNameSays()
{
    QFETCH(std::function<bool(const AppDelegate &)>, hasHappened);
    Controller controller;
    // The colour of the first swatch is the default.
    controller.app().setColor(kNavy);
    QVERIFY(!hasHappened(controller.app()));
    QTest::mouseClick(named(*controller.app().toolbar(), QTest::currentDataTag()), Qt::LeftButton);
    QVERIFY(hasHappened(controller.app()));
}

void ToolbarClicksTest::pinUndoAndClearActOnTheDrawing()
{
    Controller controller;
    const Toolbar &bar = (controller.app(), *controller.app().toolbar());
    controller.app().toggleDraw();
    for (int i = 0; i < 3; ++i)
        controller.draw(controller.view());
    QTest::mouseClick(bar.undoButton(), Qt::LeftButton);
    QCOMPARE(controller.view().shapes().size(), 2U);
    QTest::mouseClick(bar.btnPin, Qt::LeftButton);
    QVERIFY(controller.app().pinnedOn());
    QCOMPARE(controller.view().shapes().size(), 2U);
    QTest::mouseClick(bar.clearButton(), Qt::LeftButton);
    QVERIFY(controller.view().shapes().empty());
    QVERIFY(controller.app().pinnedOn());
}

void ToolbarClicksTest::quitEndsTheProgram()
{
    Controller controller;
    const Toolbar &bar = *controller.app().toolbar();
    // Quitting works only in a running event loop, so the click comes from within one.
    QTimer::singleShot(0, bar.quitButton(), [&] { QTest::mouseClick(bar.quitButton(), Qt::LeftButton); });
    QCOMPARE(QCoreApplication::exec(), 0);
}

void ToolbarClicksTest::theMenuOpensOnTheBackgroundOnly()
{
    Controller controller;
    Panel &panel = *controller.app().toolbar()->panel;
    QSignalSpy requests(&panel, &Panel::menuRequested);
    const auto rightClick = [](QWidget *widget, QPoint place) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, widget->mapToGlobal(place));
        QCoreApplication::sendEvent(widget, &event);
    };
    rightClick(controller.app().toolbar()->btnDraw, {5, 5});
    QCOMPARE(requests.size(), 0);
    rightClick(&panel, panel.frameRect().topLeft() + QPoint(6, 20));
    QCOMPARE(requests.size(), 1);
    rightClick(controller.app().toolbar()->gripView, {5, 2});
    QCOMPARE(requests.size(), 2);
}

REGISTER_TEST(ToolbarClicksTest)
#include "toolbar_clicks_test.moc"
