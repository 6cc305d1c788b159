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
    void keysInTheFieldDoNotReachTheCanvas();
    void keysThatReachTheCanvasFirstAreTyped();
    void theWheelOverTheFieldGoesToTheCanvas();
    void aFieldStaysOpenWhileTheOtherScreenIsDrawnOn();
    void closingAFieldWithoutTheKeyboardLeavesTheKeyboardAlone();
    void aClickInTheFieldGivesItTheKeyboard();
    void makingTheOverlayKeyGivesTheKeyboardToTheField();
    void turningDrawingOffDiscardsTheText();
    void clearingClosesTheField();
    void aPinnedFieldStaysAndLetsClicksThrough();
    void theFieldIsRaisedWithItsOverlay();
    void theFieldIsRemovedWithItsScreen();
    void theFieldMayStickOutOfTheScreen();
    void theFieldIsOpaqueOnlyWithoutACompositor();
};

void TextWindowTest::keysInTheFieldDoNotReachTheCanvas()
{
    for (const Qt::KeyboardModifier modifier : {Qt::ControlModifier, Qt::MetaModifier}) {
        Writing writing;
        writing.open();
        writing.type(QStringLiteral("eins"));
        writing.press(Qt::Key_Return);
        writing.open();
        writing.type(QStringLiteral("zwei"));
        writing.press(Qt::Key_Z, modifier);
        QCOMPARE(writing.field().text(), QString());
        QCOMPARE(writing.texts(), QStringList{"eins"});
        // Even if the field has nothing left to undo.
        writing.press(Qt::Key_Z, modifier);
        QCOMPARE(writing.texts(), QStringList{"eins"});
        writing.press(Qt::Key_Z, modifier | Qt::ShiftModifier);
        QCOMPARE(writing.field().text(), QStringLiteral("zwei"));
        QCOMPARE(writing.texts(), QStringList{"eins"});
    }
}

void TextWindowTest::keysThatReachTheCanvasFirstAreTyped()
{
    Writing writing;
    writing.open();
    writing.view().keyDown({.character = U'a', .modifiers = {}});
    QCOMPARE(writing.field().text(), QStringLiteral("a"));
    writing.view().keyDown({.isEscape = true, .character = 0x1B, .modifiers = {}});
    QVERIFY(writing.view().textField() == nullptr);
    QVERIFY(writing.app().drawOn());
}

void TextWindowTest::theWheelOverTheFieldGoesToTheCanvas()
{
    Writing writing;
    const auto scrollUp = [&writing] {
        QWheelEvent event(QPointF(5, 5), QPointF(5, 5), {}, {0, 120}, Qt::NoButton, {}, Qt::NoScrollPhase,
                          false);
        QCoreApplication::sendEvent(&writing.field(), &event);
    };
    writing.open();
    scrollUp();
    QCOMPARE(writing.app().spotRadius(), 90.0);
    writing.app().toggleSpot();
    scrollUp();
    QCOMPARE(writing.app().spotRadius(), 98.0);
}

void TextWindowTest::aFieldStaysOpenWhileTheOtherScreenIsDrawnOn()
{
    Writing writing(test::twoScreens());
    writing.open({200, 300}, 0);
    writing.type(QStringLiteral("links"));
    writing.app().setTool(Tool::pen);
    writing.draw(writing.view(1));
    QCOMPARE(writing.desktop.keyWindow(), QStringLiteral("overlay 1"));
    QCOMPARE(writing.field(0).text(), QStringLiteral("links"));
    QVERIFY(writing.view(0).textWindow()->isVisible());

    // Now there is a field on each screen.
    writing.app().setTool(Tool::text);
    writing.open({100, 100}, 1);
    writing.type(QStringLiteral("rechts"), 1);
    QCOMPARE(writing.field(0).text(), QStringLiteral("links"));
    writing.press(Qt::Key_Return, {}, 1);
    QCOMPARE(writing.texts(0), QStringList());
    writing.open({300, 300}, 0);
    QCOMPARE(writing.texts(0), QStringList{"links"});
    QCOMPARE(writing.app().shapeOrder(),
             (std::vector<DrawingView *>{&writing.view(1), &writing.view(1), &writing.view(0)}));
}

void TextWindowTest::closingAFieldWithoutTheKeyboardLeavesTheKeyboardAlone()
{
    Writing writing(test::twoScreens());
    writing.open({200, 300}, 0);
    writing.type(QStringLiteral("links"));
    writing.app().setTool(Tool::pen);
    writing.draw(writing.view(1));
    writing.desktop.takeLog();
    writing.view(0).commitTextField();
    QCOMPARE(writing.texts(0), QStringList{"links"});
    QCOMPARE(writing.desktop.takeLog(), QStringList());
    QCOMPARE(writing.desktop.keyWindow(), QStringLiteral("overlay 1"));
}

void TextWindowTest::aClickInTheFieldGivesItTheKeyboard()
{
    Writing writing(test::twoScreens());
    writing.open({200, 300}, 0);
    writing.app().setTool(Tool::pen);
    writing.draw(writing.view(1));
    QTest::mouseClick(&writing.field(0), Qt::LeftButton, {}, QPoint(5, 5));
    QCOMPARE(writing.desktop.keyWindow(), QStringLiteral("text field 0"));
    QVERIFY(writing.view(0).textField() != nullptr);
}

void TextWindowTest::makingTheOverlayKeyGivesTheKeyboardToTheField()
{
    Writing writing(test::twoScreens());
    writing.desktop.setMouseLocation({500, 500});
    writing.open({200, 300}, 0);
    writing.app().setTool(Tool::pen);
    writing.draw(writing.view(1));
    writing.desktop.takeLog();
    writing.app().toggleRing();
    QVERIFY(!writing.desktop.takeLog().contains(QStringLiteral("overlay 0: make key")));
    QCOMPARE(writing.desktop.keyWindow(), QStringLiteral("text field 0"));
}

void TextWindowTest::turningDrawingOffDiscardsTheText()
{
    Writing writing;
    writing.open();
    writing.type(QStringLiteral("weg"));
    writing.desktop.takeLog();
    writing.app().toggleDraw();
    QVERIFY(writing.view().textField() == nullptr);
    QVERIFY(writing.view().shapes().empty());
    QVERIFY(writing.app().shapeOrder().empty());
    const QStringList log = writing.desktop.takeLog();
    QVERIFY(!log.contains(QStringLiteral("overlay 0: make key")));
    QVERIFY(log.contains(QStringLiteral("deactivate")));
    QCOMPARE(writing.desktop.keyWindow(), QString());
}

void TextWindowTest::clearingClosesTheField()
{
    Writing writing;
    writing.open();
    writing.type(QStringLiteral("weg"));
    writing.app().clearAll();
    QVERIFY(writing.view().textField() == nullptr);
    QVERIFY(writing.view().shapes().empty());
    QVERIFY(writing.app().shapeOrder().empty());
    QVERIFY(writing.app().drawOn());
    QCOMPARE(writing.desktop.keyWindow(), QStringLiteral("overlay 0"));
}

void TextWindowTest::aPinnedFieldStaysAndLetsClicksThrough()
{
    Writing writing;
    writing.desktop.setMouseLocation({500, 500});
    writing.open();
    writing.type(QStringLiteral("bleibt"));
    auto &window = static_cast<platform::RecordingWindow &>(*writing.view().textWindow());
    QVERIFY(!window.ignoresMouseEvents());
    writing.app().togglePin();
    QCOMPARE(writing.field().text(), QStringLiteral("bleibt"));
    QVERIFY(window.isVisible());
    QVERIFY(window.ignoresMouseEvents());
    QCOMPARE(writing.desktop.keyWindow(), QString());
    writing.app().togglePin();
    QVERIFY(!window.ignoresMouseEvents());
    QCOMPARE(writing.desktop.keyWindow(), QStringLiteral("text field 0"));
    writing.press(Qt::Key_Return);
    QCOMPARE(writing.texts(), QStringList{"bleibt"});
}

void TextWindowTest::theFieldIsRaisedWithItsOverlay()
{
    Writing writing;
    writing.open();
    writing.desktop.takeLog();
    writing.app().toggleRing();
    const QStringList log = writing.desktop.takeLog();
    QVERIFY(log.contains(QStringLiteral("text field 0: order front")));
    QVERIFY(log.indexOf(QStringLiteral("text field 0: order front")) <
            log.indexOf(QStringLiteral("toolbar 0: order front")));
}

void TextWindowTest::theFieldIsRemovedWithItsScreen()
{
    Writing writing(test::twoScreens());
    writing.open({200, 300}, 1);
    writing.type(QStringLiteral("weg"), 1);
    writing.desktop.changeScreens({test::twoScreens()[0]});
    QVERIFY(writing.view().textField() == nullptr);
    QVERIFY(writing.app().shapeOrder().empty());
    writing.app().toggleDraw();
    QVERIFY(!writing.app().drawOn());
}

void TextWindowTest::theFieldMayStickOutOfTheScreen()
{
    Writing writing;
    writing.open({990, 10});
    QCOMPARE(writing.view().textWindow()->frame().left(), 990.0);
    QVERIFY(writing.view().textWindow()->frame().top() < -17);
    writing.type(QStringLiteral("a"));
    writing.press(Qt::Key_Return);
    QCOMPARE(writing.view().shapes().front().start, QPointF(992, -14));
}

void TextWindowTest::theFieldIsOpaqueOnlyWithoutACompositor()
{
    Writing writing;
    writing.desktop.setComposited(false);
    TextField &field = writing.open();
    QCOMPARE(field.palette().color(QPalette::Base).alphaF(), 1.0F);
    writing.desktop.setComposited(true);
    QCOMPARE(field.palette().color(QPalette::Base).alphaF(), 0.9F);
}

REGISTER_TEST(TextWindowTest)
#include "text_window_test.moc"
