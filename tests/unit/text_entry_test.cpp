#include "registered_test.h"
#include "writing_fixture.h"

using namespace zeigewerk;
using test::Writing;

class TextEntryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aPressOpensAFieldAndGivesItTheKeyboard();
    void returnTurnsTheTextIntoAShape();
    void theShapeHasTheColourAndWidthAtTheCommit();
    void whiteTextIsBlackOnlyInTheField();
    void anEmptyFieldLeavesNoShape();
    void spacesAreText();
    void escDiscardsTheTextAndKeepsTheModes();
    void aPressCommitsTheTextAndOpensTheNextField();
    void aPressWithAnotherToolCommitsTheTextAndDraws();
    void undoRemovesTextsInOrderWithOtherShapes();
    void undoOnTheCanvasLeavesTheFieldAlone();
    void aTextFadesFromItsCommit();
    void withoutAControllerTheTextIsDiscarded();
};

void TextEntryTest::aPressOpensAFieldAndGivesItTheKeyboard()
{
    Writing on(test::twoScreens());
    on.open({200, 300}, 1);
    QCOMPARE(on.desktop.takeLog(), QStringList({"overlay 1: make key", "text field 0: made",
                                                "text field 0: order front", "text field 0: make key"}));
    QCOMPARE(on.desktop.keyWindow(), QStringLiteral("text field 0"));
    const QRectF frame = on.view(1).textWindow()->frame();
    QCOMPARE(frame.size(), QSizeF(340, 32));
    QCOMPARE(frame.left(), 1200.0);
    // The text's baseline determines the exact pixel.
    QVERIFY(std::abs(frame.top() - (200 + 272)) <= 0.5);
    QVERIFY(!on.view(1).current());
    QVERIFY(on.view(1).shapes().empty());
    on.view(1).mouseUp({{200, 300}, {}});
    QVERIFY(on.view(1).shapes().empty());
    QVERIFY(on.view(1).textField() != nullptr);
}

void TextEntryTest::returnTurnsTheTextIntoAShape()
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
    // The canvas gets the keyboard before the field closes.
    QCOMPARE(on.desktop.takeLog(), QStringList({"overlay 0: make key"}));
    QCOMPARE(on.desktop.keyWindow(), QStringLiteral("overlay 0"));
    QVERIFY(on.surface().display());
}

void TextEntryTest::theShapeHasTheColourAndWidthAtTheCommit()
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

void TextEntryTest::whiteTextIsBlackOnlyInTheField()
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

void TextEntryTest::anEmptyFieldLeavesNoShape()
{
    Writing on;
    on.open();
    on.press(Qt::Key_Return);
    QVERIFY(on.view().textField() == nullptr);
    QVERIFY(on.view().shapes().empty());
    QVERIFY(on.app().shapeOrder().empty());
    QCOMPARE(on.desktop.keyWindow(), QStringLiteral("overlay 0"));
    // Without a field, a commit does nothing.
    on.desktop.takeLog();
    on.view().commitTextField();
    QCOMPARE(on.desktop.takeLog(), QStringList());
}

void TextEntryTest::spacesAreText()
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

void TextEntryTest::escDiscardsTheTextAndKeepsTheModes()
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
    // The next Esc goes to the canvas.
    on.view().keyDown({.isEscape = true, .character = 0x1B, .modifiers = {}});
    QVERIFY(!on.app().interactionOn());
}

void TextEntryTest::aPressCommitsTheTextAndOpensTheNextField()
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

void TextEntryTest::aPressWithAnotherToolCommitsTheTextAndDraws()
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

void TextEntryTest::undoRemovesTextsInOrderWithOtherShapes()
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

void TextEntryTest::aTextFadesFromItsCommit()
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

void TextEntryTest::withoutAControllerTheTextIsDiscarded()
{
    Writing on;
    on.open();
    on.type(QStringLiteral("weg"));
    on.view().app = nullptr;
    on.press(Qt::Key_Return);
    QVERIFY(on.view().textField() == nullptr);
    QVERIFY(on.view().shapes().empty());
}

REGISTER_TEST(TextEntryTest)
#include "text_entry_test.moc"
