#include "controller_fixture.h"

#include <QTest>

using namespace zeigewerk;
using platform::KeyEvent;
using test::Controller;

class CanvasKeyboardTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void escEndsAllModesAndLeavesTheRest();
    void otherKeysChangeNothing();
    void withoutAControllerEscDoesNothing();
};

void CanvasKeyboardTest::escEndsAllModesAndLeavesTheRest()
{
    Controller controller;
    controller.perform("dwskr");
    controller.view().keyDown(KeyEvent{.isEscape = true, .character = 0x1B, .modifiers = {}});
    QVERIFY(!controller.app().drawOn());
    QVERIFY(!controller.app().whiteboardOn());
    QVERIFY(!controller.app().spotlightOn());
    QVERIFY(!controller.app().pinnedOn());
    QVERIFY(controller.app().clicksOn());
    QVERIFY(controller.app().cursorRingOn());
}

void CanvasKeyboardTest::otherKeysChangeNothing()
{
    Controller controller;
    controller.app().toggleDraw();
    controller.draw(controller.view());
    controller.desktop.takeLog();
    controller.view().keyDown(KeyEvent{.isEscape = false, .character = U'z', .modifiers = {}});
    QVERIFY(controller.app().drawOn());
    QCOMPARE(controller.view().shapes().size(), 1U);
    QCOMPARE(controller.desktop.takeLog(), QStringList());
}

void CanvasKeyboardTest::withoutAControllerEscDoesNothing()
{
    DrawingView view(QSizeF(100, 100));
    view.keyDown(KeyEvent{.isEscape = true, .character = 0, .modifiers = {}});
    QVERIFY(view.shapes().empty());
}

QTEST_MAIN(CanvasKeyboardTest)
#include "canvas_keyboard_test.moc"
