// The rules for choosing tools, colours and widths on the toolbar, and for hiding it.

#include "registered_test.h"
#include "toolbar_fixture.h"

#include <QTest>

using namespace zeigewerk;
using namespace zeigewerk::test;

class ToolbarPicksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pickingAToolMakesTheCanvasInteractive_data();
    void pickingAToolMakesTheCanvasInteractive();
    void aTagWithoutAToolDoesNothing();
    void pickingAColourChangesNothingElse();
    void pickingAWidthChangesNothingElse();
    void hidingKeepsThePositionAndTheSelection();
    void theToolbarComesBackAboveTheOverlays();
    void aHiddenToolbarStaysHiddenWhenDrawingBegins();
};

void ToolbarPicksTest::pickingAToolMakesTheCanvasInteractive_data()
{
    QTest::addColumn<QString>("operations");
    QTest::addColumn<bool>("drawOn");
    QTest::addColumn<bool>("whiteboardOn");
    QTest::newRow("with nothing on, it turns drawing on") << "" << true << false;
    QTest::newRow("with drawing on, it only changes the tool") << "d" << true << false;
    QTest::newRow("on the whiteboard, it does not turn drawing on") << "w" << false << true;
    QTest::newRow("with both on, both stay on") << "dw" << true << true;
    QTest::newRow("it ends a pin") << "dp" << true << false;
    QTest::newRow("it ends a pin beneath a whiteboard") << "dpw" << true << true;
    QTest::newRow("with only the spotlight on, it turns drawing on") << "s" << true << false;
}

void ToolbarPicksTest::pickingAToolMakesTheCanvasInteractive()
{
    QFETCH(QString, operations);
    QFETCH(bool, drawOn);
    QFETCH(bool, whiteboardOn);
    Controller controller;
    controller.perform(operations);
    controller.desktop.takeLog();
    controller.app().pickTool(Tool::ellipse);
    QCOMPARE(controller.app().tool(), Tool(Tool::ellipse));
    QCOMPARE(controller.app().drawOn(), drawOn);
    QCOMPARE(controller.app().whiteboardOn(), whiteboardOn);
    QVERIFY(!controller.app().pinnedOn());
    // Everything was refreshed, not only the toolbar.
    QVERIFY(controller.desktop.takeLog().contains(QStringLiteral("overlay 0: take the mouse")));
}

void ToolbarPicksTest::aTagWithoutAToolDoesNothing()
{
    Controller controller;
    controller.app().setTool(Tool::arrow);
    controller.desktop.takeLog();
    for (const int tag : {-1, 7, 100, -2147483647}) {
        controller.app().pickTool(tag);
        QCOMPARE(controller.app().tool(), Tool(Tool::arrow));
        QVERIFY(!controller.app().drawOn());
    }
    QVERIFY(controller.desktop.takeLog().isEmpty());
}

void ToolbarPicksTest::pickingAColourChangesNothingElse()
{
    Controller controller;
    controller.app().pickColor(3);
    QVERIFY(controller.app().color() == kPalette.at(3));
    QVERIFY(!controller.app().drawOn());

    controller.app().toggleDraw();
    controller.draw(controller.view());
    controller.app().pickColor(5);
    QVERIFY(controller.view().shapes().front().color == kPalette.at(3));
}

void ToolbarPicksTest::pickingAWidthChangesNothingElse()
{
    Controller controller;
    controller.app().pickWidth(2);
    QCOMPARE(controller.app().lineWidth(), 9.0);
    QVERIFY(!controller.app().drawOn());
}

void ToolbarPicksTest::hidingKeepsThePositionAndTheSelection()
{
    Controller controller;
    controller.perform(QStringLiteral("ks"));
    controller.app().pickWidth(0);
    const QStringList before = appearance(controller.app());
    const QRectF frame = controller.app().toolbar()->window->frame();
    controller.app().toggleToolbar();
    QVERIFY(!controller.app().toolbar()->window->isVisible());
    controller.app().toggleToolbar();
    QVERIFY(controller.app().toolbar()->window->isVisible());
    QCOMPARE(controller.app().toolbar()->window->frame(), frame);
    QCOMPARE(appearance(controller.app()), before);
}

void ToolbarPicksTest::theToolbarComesBackAboveTheOverlays()
{
    Controller controller;
    controller.app();
    controller.desktop.takeLog();
    controller.app().toggleDraw();
    const QStringList log = controller.desktop.takeLog();
    QVERIFY(log.indexOf(QStringLiteral("toolbar 0: order front")) >
            log.indexOf(QStringLiteral("overlay 0: make key")));
}

void ToolbarPicksTest::aHiddenToolbarStaysHiddenWhenDrawingBegins()
{
    Controller controller;
    controller.app().toggleToolbar();
    controller.app().toggleDraw();
    QVERIFY(!controller.app().toolbar()->window->isVisible());
}

REGISTER_TEST(ToolbarPicksTest)
#include "toolbar_picks_test.moc"
