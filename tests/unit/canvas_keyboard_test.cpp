#include "controller_fixture.h"
#include "registered_test.h"

#include <QTest>

using namespace zeigewerk;
using platform::KeyEvent;
using platform::Modifier;
using platform::Modifiers;
using test::Controller;

class CanvasKeyboardTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void escEndsTheModesButNotClicksAndCursorRing();
    void zWithCtrlOrSuperUndoesTheNewestShape_data();
    void zWithCtrlOrSuperUndoesTheNewestShape();
    void otherKeysChangeNothing_data();
    void otherKeysChangeNothing();
    void withoutAControllerKeysDoNothing();
};

void CanvasKeyboardTest::escEndsTheModesButNotClicksAndCursorRing()
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

void CanvasKeyboardTest::zWithCtrlOrSuperUndoesTheNewestShape_data()
{
    QTest::addColumn<char32_t>("character");
    QTest::addColumn<int>("modifiers");
    const auto row = [](const char *name, char32_t character, Modifiers modifiers) {
        QTest::newRow(name) << character << static_cast<int>(modifiers);
    };
    row("Ctrl+Z", U'z', Modifier::Ctrl);
    row("Ctrl+Shift+Z", U'Z', Modifier::Ctrl | Modifier::Shift);
    row("Ctrl+Z with CapsLock", U'Z', Modifier::Ctrl);
    row("Super+Z", U'z', Modifier::Super);
    row("Super+Shift+Z", U'Z', Modifier::Super | Modifier::Shift);
    row("Ctrl+Super+Z", U'z', Modifier::Ctrl | Modifier::Super);
}

void CanvasKeyboardTest::zWithCtrlOrSuperUndoesTheNewestShape()
{
    QFETCH(char32_t, character);
    QFETCH(int, modifiers);
    Controller controller;
    controller.app().toggleDraw();
    controller.draw(controller.view(), {10, 10}, {20, 10});
    controller.draw(controller.view(), {10, 50}, {20, 50});
    controller.view().keyDown(
        KeyEvent{.isEscape = false, .character = character, .modifiers = Modifiers(modifiers)});
    QCOMPARE(controller.view().shapes().size(), 1U);
    QCOMPARE(controller.view().shapes().front().start, QPointF(10, 10));
    QVERIFY(controller.app().drawOn());
}

void CanvasKeyboardTest::otherKeysChangeNothing_data()
{
    QTest::addColumn<char32_t>("character");
    QTest::addColumn<int>("modifiers");
    const auto row = [](const char *name, char32_t character, Modifiers modifiers) {
        QTest::newRow(name) << character << static_cast<int>(modifiers);
    };
    row("z alone", U'z', {});
    row("Shift+Z", U'Z', Modifier::Shift);
    row("Alt+Z", U'z', Modifier::Alt);
    row("Ctrl+Y", U'y', Modifier::Ctrl);
    row("Ctrl with a key that types nothing", U'\0', Modifier::Ctrl);
}

void CanvasKeyboardTest::otherKeysChangeNothing()
{
    QFETCH(char32_t, character);
    QFETCH(int, modifiers);
    Controller controller;
    controller.app().toggleDraw();
    controller.draw(controller.view());
    controller.desktop.takeLog();
    controller.view().keyDown(
        KeyEvent{.isEscape = false, .character = character, .modifiers = Modifiers(modifiers)});
    QVERIFY(controller.app().drawOn());
    QCOMPARE(controller.view().shapes().size(), 1U);
    QCOMPARE(controller.desktop.takeLog(), QStringList());
}

void CanvasKeyboardTest::withoutAControllerKeysDoNothing()
{
    DrawingView view(QSizeF(100, 100));
    view.keyDown(KeyEvent{.isEscape = true, .character = 0, .modifiers = {}});
    view.keyDown(KeyEvent{.isEscape = false, .character = U'z', .modifiers = Modifier::Ctrl});
    QVERIFY(view.shapes().empty());
}

REGISTER_TEST(CanvasKeyboardTest)
#include "canvas_keyboard_test.moc"
