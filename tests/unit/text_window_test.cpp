// How an open text field follows its overlay, and who has the keyboard.

#include "registered_test.h"
#include "writing_fixture.h"

#include <QWheelEvent>

using namespace zeigewerk;
using test::Writing;

class TextWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keysOfTheFieldAreNoneOfTheCanvas();
    void keysThatReachTheCanvasFirstAreTyped();
    void theWheelOverTheFieldIsTheCanvas();
    void aFieldStaysOpenWhileTheOtherScreenIsDrawnOn();
    void aFieldWithoutTheKeyboardHasNoneToPassOn();
    void aClickInTheFieldGivesItTheKeyboard();
    void makingTheOverlayKeyGivesTheKeyboardToTheField();
    void turningDrawingOffDiscardsTheText();
    void clearingClosesTheField();
    void pinnedTheFieldStaysAndLetsClicksThrough();
    void theFieldIsRaisedWithItsOverlay();
    void theFieldGoesWithItsScreen();
    void theFieldMayStickOutOfTheScreen();
    void theFieldFollowsTheCompositor();
};

void TextWindowTest::keysOfTheFieldAreNoneOfTheCanvas()
{
    for (const Qt::KeyboardModifier modifier : {Qt::ControlModifier, Qt::MetaModifier}) {
        Writing on;
        on.open();
        on.type(QStringLiteral("eins"));
        on.press(Qt::Key_Return);
        on.open();
        on.type(QStringLiteral("zwei"));
        on.press(Qt::Key_Z, modifier);
        QCOMPARE(on.field().text(), QString());
        QCOMPARE(on.texts(), QStringList{"eins"});
        // Also when there is nothing left that the field could undo.
        on.press(Qt::Key_Z, modifier);
        QCOMPARE(on.texts(), QStringList{"eins"});
        on.press(Qt::Key_Z, modifier | Qt::ShiftModifier);
        QCOMPARE(on.field().text(), QStringLiteral("zwei"));
        QCOMPARE(on.texts(), QStringList{"eins"});
    }
}

void TextWindowTest::keysThatReachTheCanvasFirstAreTyped()
{
    Writing on;
    on.open();
    on.view().keyDown({.character = U'a', .modifiers = {}});
    QCOMPARE(on.field().text(), QStringLiteral("a"));
    on.view().keyDown({.isEscape = true, .character = 0x1B, .modifiers = {}});
    QVERIFY(on.view().textField() == nullptr);
    QVERIFY(on.app().drawOn());
}

void TextWindowTest::theWheelOverTheFieldIsTheCanvas()
{
    Writing on;
    const auto scrollUp = [&on] {
        QWheelEvent event(QPointF(5, 5), QPointF(5, 5), {}, {0, 120}, Qt::NoButton, {}, Qt::NoScrollPhase,
                          false);
        QCoreApplication::sendEvent(&on.field(), &event);
    };
    on.open();
    scrollUp();
    QCOMPARE(on.app().spotRadius(), 90.0);
    on.app().toggleSpot();
    scrollUp();
    QCOMPARE(on.app().spotRadius(), 98.0);
}

void TextWindowTest::aFieldStaysOpenWhileTheOtherScreenIsDrawnOn()
{
    Writing on(test::twoScreens());
    on.open({200, 300}, 0);
    on.type(QStringLiteral("links"));
    on.app().setTool(Tool::pen);
    on.draw(on.view(1));
    QCOMPARE(on.desktop.keyWindow(), QStringLiteral("overlay 1"));
    QCOMPARE(on.field(0).text(), QStringLiteral("links"));
    QVERIFY(on.view(0).textWindow()->isVisible());

    // A field on each screen.
    on.app().setTool(Tool::text);
    on.open({100, 100}, 1);
    on.type(QStringLiteral("rechts"), 1);
    QCOMPARE(on.field(0).text(), QStringLiteral("links"));
    on.press(Qt::Key_Return, {}, 1);
    QCOMPARE(on.texts(0), QStringList());
    on.open({300, 300}, 0);
    QCOMPARE(on.texts(0), QStringList{"links"});
    QCOMPARE(on.app().shapeOrder(), (std::vector<DrawingView *>{&on.view(1), &on.view(1), &on.view(0)}));
}

void TextWindowTest::aFieldWithoutTheKeyboardHasNoneToPassOn()
{
    Writing on(test::twoScreens());
    on.open({200, 300}, 0);
    on.type(QStringLiteral("links"));
    on.app().setTool(Tool::pen);
    on.draw(on.view(1));
    on.desktop.takeLog();
    on.view(0).commitTextField();
    QCOMPARE(on.texts(0), QStringList{"links"});
    QCOMPARE(on.desktop.takeLog(), QStringList());
    QCOMPARE(on.desktop.keyWindow(), QStringLiteral("overlay 1"));
}

void TextWindowTest::aClickInTheFieldGivesItTheKeyboard()
{
    Writing on(test::twoScreens());
    on.open({200, 300}, 0);
    on.app().setTool(Tool::pen);
    on.draw(on.view(1));
    QTest::mouseClick(&on.field(0), Qt::LeftButton, {}, QPoint(5, 5));
    QCOMPARE(on.desktop.keyWindow(), QStringLiteral("text field 0"));
    QVERIFY(on.view(0).textField() != nullptr);
}

void TextWindowTest::makingTheOverlayKeyGivesTheKeyboardToTheField()
{
    Writing on(test::twoScreens());
    on.desktop.setMouseLocation({500, 500});
    on.open({200, 300}, 0);
    on.app().setTool(Tool::pen);
    on.draw(on.view(1));
    on.desktop.takeLog();
    on.app().toggleRing();
    QVERIFY(!on.desktop.takeLog().contains(QStringLiteral("overlay 0: make key")));
    QCOMPARE(on.desktop.keyWindow(), QStringLiteral("text field 0"));
}

void TextWindowTest::turningDrawingOffDiscardsTheText()
{
    Writing on;
    on.open();
    on.type(QStringLiteral("weg"));
    on.desktop.takeLog();
    on.app().toggleDraw();
    QVERIFY(on.view().textField() == nullptr);
    QVERIFY(on.view().shapes().empty());
    QVERIFY(on.app().shapeOrder().empty());
    const QStringList log = on.desktop.takeLog();
    QVERIFY(!log.contains(QStringLiteral("overlay 0: make key")));
    QVERIFY(log.contains(QStringLiteral("deactivate")));
    QCOMPARE(on.desktop.keyWindow(), QString());
}

void TextWindowTest::clearingClosesTheField()
{
    Writing on;
    on.open();
    on.type(QStringLiteral("weg"));
    on.app().clearAll();
    QVERIFY(on.view().textField() == nullptr);
    QVERIFY(on.view().shapes().empty());
    QVERIFY(on.app().shapeOrder().empty());
    QVERIFY(on.app().drawOn());
    QCOMPARE(on.desktop.keyWindow(), QStringLiteral("overlay 0"));
}

void TextWindowTest::pinnedTheFieldStaysAndLetsClicksThrough()
{
    Writing on;
    on.desktop.setMouseLocation({500, 500});
    on.open();
    on.type(QStringLiteral("bleibt"));
    auto &window = static_cast<platform::RecordingWindow &>(*on.view().textWindow());
    QVERIFY(!window.ignoresMouseEvents());
    on.app().togglePin();
    QCOMPARE(on.field().text(), QStringLiteral("bleibt"));
    QVERIFY(window.isVisible());
    QVERIFY(window.ignoresMouseEvents());
    QCOMPARE(on.desktop.keyWindow(), QString());
    on.app().togglePin();
    QVERIFY(!window.ignoresMouseEvents());
    QCOMPARE(on.desktop.keyWindow(), QStringLiteral("text field 0"));
    on.press(Qt::Key_Return);
    QCOMPARE(on.texts(), QStringList{"bleibt"});
}

void TextWindowTest::theFieldIsRaisedWithItsOverlay()
{
    Writing on;
    on.open();
    on.desktop.takeLog();
    on.app().toggleRing();
    const QStringList log = on.desktop.takeLog();
    QVERIFY(log.contains(QStringLiteral("text field 0: order front")));
    QVERIFY(log.indexOf(QStringLiteral("text field 0: order front")) <
            log.indexOf(QStringLiteral("toolbar 0: order front")));
}

void TextWindowTest::theFieldGoesWithItsScreen()
{
    Writing on(test::twoScreens());
    on.open({200, 300}, 1);
    on.type(QStringLiteral("weg"), 1);
    on.desktop.changeScreens({test::twoScreens()[0]});
    QVERIFY(on.view().textField() == nullptr);
    QVERIFY(on.app().shapeOrder().empty());
    on.app().toggleDraw();
    QVERIFY(!on.app().drawOn());
}

void TextWindowTest::theFieldMayStickOutOfTheScreen()
{
    Writing on;
    on.open({990, 10});
    QCOMPARE(on.view().textWindow()->frame().left(), 990.0);
    QVERIFY(on.view().textWindow()->frame().top() < -17);
    on.type(QStringLiteral("a"));
    on.press(Qt::Key_Return);
    QCOMPARE(on.view().shapes().front().start, QPointF(992, -14));
}

void TextWindowTest::theFieldFollowsTheCompositor()
{
    Writing on;
    on.desktop.setComposited(false);
    TextField &field = on.open();
    QCOMPARE(field.palette().color(QPalette::Base).alphaF(), 1.0F);
    on.desktop.setComposited(true);
    QCOMPARE(field.palette().color(QPalette::Base).alphaF(), 0.9F);
}

REGISTER_TEST(TextWindowTest)
#include "text_window_test.moc"
