#include "canvas/text_field.h"
#include "controller_fixture.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QTest>
#include <QWheelEvent>

using namespace zeigewerk;
using test::Controller;

namespace {

/// A controller with drawing on and the text tool chosen.
class Writing : public Controller
{
public:
    Writing() { begin(); }
    explicit Writing(std::vector<platform::Screen> screens)
        : Controller(std::move(screens))
    {
        begin();
    }

    /// A press at that point, and the field that it opens.
    TextField &open(QPointF point = {200, 300}, std::size_t screen = 0)
    {
        view(screen).mouseDown({point, {}});
        return field(screen);
    }
    TextField &field(std::size_t screen = 0)
    {
        if (!view(screen).textField())
            qFatal("no text field is open");
        return *view(screen).textField();
    }
    void type(const QString &text, std::size_t screen = 0) { QTest::keyClicks(&field(screen), text); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}, std::size_t screen = 0)
    {
        QTest::keyClick(&field(screen), key, modifiers);
    }
    QStringList texts(std::size_t screen = 0)
    {
        QStringList texts;
        for (const Shape &shape : view(screen).shapes())
            texts.append(shape.text);
        return texts;
    }

private:
    void begin()
    {
        app().toggleDraw();
        app().setTool(Tool::text);
        desktop.takeLog();
    }
};

} // namespace

class TextEntryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aPressOpensAFieldThatHasTheKeyboard();
    void returnMakesTheTextAShape();
    void theShapeHasColourAndWidthOfThatMoment();
    void whiteIsBlackInTheFieldOnly();
    void anEmptyFieldLeavesNothing();
    void blanksAreText();
    void escDiscardsTheTextAndLeavesTheModes();
    void aPressCommitsAndOpensTheNext();
    void aPressWithAnotherToolCommitsAndDraws();
    void aPressTakesOverWhatIsBeingComposed();
    void undoTakesTextsInTheirOrder();
    void undoOnTheCanvasLeavesTheFieldAlone();
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
    void aCommittedTextStartsTheFading();
    void theFieldFollowsTheCompositor();
    void withoutAControllerTheTextIsDropped();
};

void TextEntryTest::aPressOpensAFieldThatHasTheKeyboard()
{
    Writing on(test::twoScreens());
    on.open({200, 300}, 1);
    QCOMPARE(on.desktop.takeLog(), QStringList({"overlay 1: make key", "text field 0: made",
                                                "text field 0: order front", "text field 0: make key"}));
    QCOMPARE(on.desktop.keyWindow(), QStringLiteral("text field 0"));
    const QRectF frame = on.view(1).textWindow()->frame();
    QCOMPARE(frame.size(), QSizeF(340, 32));
    QCOMPARE(frame.left(), 1200.0);
    // Its text's baseline decides to the pixel.
    QVERIFY(std::abs(frame.top() - (200 + 272)) <= 0.5);
    QVERIFY(!on.view(1).current());
    QVERIFY(on.view(1).shapes().empty());
    on.view(1).mouseUp({{200, 300}, {}});
    QVERIFY(on.view(1).shapes().empty());
    QVERIFY(on.view(1).textField() != nullptr);
}

void TextEntryTest::returnMakesTheTextAShape()
{
    Writing on;
    on.open({200, 300});
    on.type(QStringLiteral("Welt"));
    on.passTime(7);
    on.desktop.takeLog();
    on.press(Qt::Key_Return);
    QVERIFY(on.view().textField() == nullptr);
    QCOMPARE(on.view().shapes().size(), 1U);
    const Shape expected{.tool = Tool::text,
                         .points = {},
                         .start = {202, 276},
                         .end = {202, 276},
                         .color = kOrange,
                         .width = 5.0,
                         .text = QStringLiteral("Welt"),
                         .created = on.now};
    QVERIFY(on.view().shapes().front() == expected);
    QCOMPARE(on.app().shapeOrder(), std::vector<DrawingView *>{&on.view()});
    // The canvas has the keyboard before the field goes.
    QCOMPARE(on.desktop.takeLog(), QStringList({"overlay 0: make key"}));
    QCOMPARE(on.desktop.keyWindow(), QStringLiteral("overlay 0"));
    QVERIFY(on.surface().display());
}

void TextEntryTest::theShapeHasColourAndWidthOfThatMoment()
{
    Writing on;
    on.open({10.5, 40.25});
    on.type(QStringLiteral("a"));
    on.app().setColor(kNavy);
    on.app().setLineWidth(9);
    on.press(Qt::Key_Enter);
    QCOMPARE(on.view().shapes().size(), 1U);
    QVERIFY(on.view().shapes().front().color == kNavy);
    QCOMPARE(on.view().shapes().front().width, 9.0);
    QCOMPARE(on.view().shapes().front().start, QPointF(12.5, 16.25));
}

void TextEntryTest::whiteIsBlackInTheFieldOnly()
{
    Writing on;
    on.app().setColor(kWhite);
    QCOMPARE(on.open().palette().color(QPalette::Text), QColor(Qt::black));
    on.type(QStringLiteral("weiß"));
    on.press(Qt::Key_Return);
    QVERIFY(on.view().shapes().front().color == kWhite);

    const Color nearlyWhite{1.0, 1.0, 0.999, 1.0};
    on.app().setColor(nearlyWhite);
    QVERIFY(on.open().palette().color(QPalette::Text) != QColor(Qt::black));
}

void TextEntryTest::anEmptyFieldLeavesNothing()
{
    Writing on;
    on.open();
    on.press(Qt::Key_Return);
    QVERIFY(on.view().textField() == nullptr);
    QVERIFY(on.view().shapes().empty());
    QVERIFY(on.app().shapeOrder().empty());
    QCOMPARE(on.desktop.keyWindow(), QStringLiteral("overlay 0"));
    // Committing nothing is nothing.
    on.desktop.takeLog();
    on.view().commitTextField();
    QCOMPARE(on.desktop.takeLog(), QStringList());
}

void TextEntryTest::blanksAreText()
{
    Writing on;
    on.open();
    on.type(QStringLiteral("  "));
    on.press(Qt::Key_Return);
    QCOMPARE(on.texts(), QStringList{"  "});
    on.open();
    on.type(QStringLiteral(" a "));
    on.press(Qt::Key_Return);
    QCOMPARE(on.texts(), QStringList({"  ", " a "}));
}

void TextEntryTest::escDiscardsTheTextAndLeavesTheModes()
{
    Writing on;
    on.app().toggleBoard();
    on.open();
    on.type(QStringLiteral("weg"));
    on.press(Qt::Key_Escape);
    QVERIFY(on.view().textField() == nullptr);
    QVERIFY(on.view().shapes().empty());
    QVERIFY(on.app().drawOn());
    QVERIFY(on.app().whiteboardOn());
    QCOMPARE(on.desktop.keyWindow(), QStringLiteral("overlay 0"));
    // The next one is the canvas's.
    on.view().keyDown({.isEscape = true, .character = 0x1B, .modifiers = {}});
    QVERIFY(!on.app().interactionOn());
}

void TextEntryTest::aPressCommitsAndOpensTheNext()
{
    Writing on;
    on.open({100, 100});
    on.type(QStringLiteral("eins"));
    TextField &next = on.open({300, 400});
    QCOMPARE(on.texts(), QStringList{"eins"});
    QCOMPARE(on.view().shapes().front().start, QPointF(102, 76));
    QCOMPARE(next.text(), QString());
    on.press(Qt::Key_Return);
    QCOMPARE(on.texts(), QStringList{"eins"});
}

void TextEntryTest::aPressWithAnotherToolCommitsAndDraws()
{
    Writing on;
    on.open({100, 100});
    on.type(QStringLiteral("eins"));
    on.app().setTool(Tool::pen);
    on.view().mouseDown({{400, 400}, {}});
    QVERIFY(on.view().textField() == nullptr);
    QCOMPARE(on.texts(), QStringList{"eins"});
    QVERIFY(on.view().current().has_value());
    QCOMPARE(on.desktop.keyWindow(), QStringLiteral("overlay 0"));
}

void TextEntryTest::aPressTakesOverWhatIsBeingComposed()
{
    Writing on;
    TextField &field = on.open();
    on.type(QStringLiteral("a"));
    QInputMethodEvent composing(QStringLiteral("にほん"), {});
    QCoreApplication::sendEvent(&field, &composing);
    on.open({400, 400});
    QCOMPARE(on.texts(), QStringList{"aにほん"});
}

void TextEntryTest::undoTakesTextsInTheirOrder()
{
    Writing on;
    for (const QString &text : {QStringLiteral("eins"), QStringLiteral("zwei")}) {
        on.open();
        on.type(text);
        on.press(Qt::Key_Return);
    }
    on.app().setTool(Tool::pen);
    on.draw(on.view());
    on.app().undoShape();
    QCOMPARE(on.texts(), QStringList({"eins", "zwei"}));
    on.app().undoShape();
    QCOMPARE(on.texts(), QStringList{"eins"});
}

void TextEntryTest::undoOnTheCanvasLeavesTheFieldAlone()
{
    Writing on;
    on.open();
    on.type(QStringLiteral("eins"));
    on.press(Qt::Key_Return);
    on.open();
    on.type(QStringLiteral("zwei"));
    on.app().undoShape();
    QCOMPARE(on.texts(), QStringList());
    QCOMPARE(on.field().text(), QStringLiteral("zwei"));
}

void TextEntryTest::keysOfTheFieldAreNoneOfTheCanvas()
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

void TextEntryTest::keysThatReachTheCanvasFirstAreTyped()
{
    Writing on;
    on.open();
    on.view().keyDown({.character = U'a', .modifiers = {}});
    QCOMPARE(on.field().text(), QStringLiteral("a"));
    on.view().keyDown({.isEscape = true, .character = 0x1B, .modifiers = {}});
    QVERIFY(on.view().textField() == nullptr);
    QVERIFY(on.app().drawOn());
}

void TextEntryTest::theWheelOverTheFieldIsTheCanvas()
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

void TextEntryTest::aFieldStaysOpenWhileTheOtherScreenIsDrawnOn()
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

void TextEntryTest::aFieldWithoutTheKeyboardHasNoneToPassOn()
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

void TextEntryTest::aClickInTheFieldGivesItTheKeyboard()
{
    Writing on(test::twoScreens());
    on.open({200, 300}, 0);
    on.app().setTool(Tool::pen);
    on.draw(on.view(1));
    QTest::mouseClick(&on.field(0), Qt::LeftButton, {}, QPoint(5, 5));
    QCOMPARE(on.desktop.keyWindow(), QStringLiteral("text field 0"));
    QVERIFY(on.view(0).textField() != nullptr);
}

void TextEntryTest::makingTheOverlayKeyGivesTheKeyboardToTheField()
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

void TextEntryTest::turningDrawingOffDiscardsTheText()
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

void TextEntryTest::clearingClosesTheField()
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

void TextEntryTest::pinnedTheFieldStaysAndLetsClicksThrough()
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

void TextEntryTest::theFieldIsRaisedWithItsOverlay()
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

void TextEntryTest::theFieldGoesWithItsScreen()
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

void TextEntryTest::theFieldMayStickOutOfTheScreen()
{
    Writing on;
    on.open({990, 10});
    QCOMPARE(on.view().textWindow()->frame().left(), 990.0);
    QVERIFY(on.view().textWindow()->frame().top() < -17);
    on.type(QStringLiteral("a"));
    on.press(Qt::Key_Return);
    QCOMPARE(on.view().shapes().front().start, QPointF(992, -14));
}

void TextEntryTest::aCommittedTextStartsTheFading()
{
    Writing on;
    on.app().toggleFade();
    on.open();
    on.type(QStringLiteral("a"));
    on.passTime(60);
    QVERIFY(!on.app().isFadeTimerRunning());
    on.press(Qt::Key_Return);
    QVERIFY(on.app().isFadeTimerRunning());
    on.passTime(4.7);
    on.app().tickFade();
    QCOMPARE(on.texts(), QStringList{"a"});
    on.passTime(0.2);
    on.app().tickFade();
    QCOMPARE(on.texts(), QStringList());
}

void TextEntryTest::theFieldFollowsTheCompositor()
{
    Writing on;
    on.desktop.setComposited(false);
    TextField &field = on.open();
    QCOMPARE(field.palette().color(QPalette::Base).alphaF(), 1.0F);
    on.desktop.setComposited(true);
    QCOMPARE(field.palette().color(QPalette::Base).alphaF(), 0.9F);
}

void TextEntryTest::withoutAControllerTheTextIsDropped()
{
    Writing on;
    on.open();
    on.type(QStringLiteral("weg"));
    on.view().app = nullptr;
    on.press(Qt::Key_Return);
    QVERIFY(on.view().textField() == nullptr);
    QVERIFY(on.view().shapes().empty());
}

QTEST_MAIN(TextEntryTest)
#include "text_entry_test.moc"
