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
    Writing writing(test::twoScreens());
    writing.open({200, 300}, 1);
    QCOMPARE(writing.desktop.takeLog(), QStringList({"overlay 1: make key", "text field 0: made",
                                                     "text field 0: order front", "text field 0: make key"}));
    QCOMPARE(writing.desktop.keyWindow(), QStringLiteral("text field 0"));
    const QRectF frame = writing.view(1).textWindow()->frame();
    QCOMPARE(frame.size(), QSizeF(340, 32));
    QCOMPARE(frame.left(), 1200.0);
    // The text's baseline determines the exact pixel.
    QVERIFY(std::abs(frame.top() - (200 + 272)) <= 0.5);
    QVERIFY(!writing.view(1).current());
    QVERIFY(writing.view(1).shapes().empty());
    writing.view(1).mouseUp({{200, 300}, {}});
    QVERIFY(writing.view(1).shapes().empty());
    QVERIFY(writing.view(1).textField() != nullptr);
}

void TextEntryTest::returnTurnsTheTextIntoAShape()
{
    Writing writing;
    writing.open({200, 300});
    writing.type(QStringLiteral("Welt"));
    writing.passTime(7);
    writing.desktop.takeLog();
    writing.press(Qt::Key_Return);
    QVERIFY(writing.view().textField() == nullptr);
    QCOMPARE(writing.view().shapes().size(), 1U);
    const Shape expected{.tool = Tool::text,
                         .points = {},
                         .start = {202, 276},
                         .end = {202, 276},
                         .color = kOrange,
                         .width = 5.0,
                         .text = QStringLiteral("Welt"),
                         .created = writing.now};
    QVERIFY(writing.view().shapes().front() == expected);
    QCOMPARE(writing.app().shapeOrder(), std::vector<DrawingView *>{&writing.view()});
    // The canvas gets the keyboard before the field closes.
    QCOMPARE(writing.desktop.takeLog(), QStringList({"overlay 0: make key"}));
    QCOMPARE(writing.desktop.keyWindow(), QStringLiteral("overlay 0"));
    QVERIFY(writing.surface().display());
}

void TextEntryTest::theShapeHasTheColourAndWidthAtTheCommit()
{
    Writing writing;
    writing.open({10.5, 40.25});
    writing.type(QStringLiteral("a"));
    writing.app().setColor(kNavy);
    writing.app().setLineWidth(9);
    writing.press(Qt::Key_Enter);
    QCOMPARE(writing.view().shapes().size(), 1U);
    QVERIFY(writing.view().shapes().front().color == kNavy);
    QCOMPARE(writing.view().shapes().front().width, 9.0);
    QCOMPARE(writing.view().shapes().front().start, QPointF(12.5, 16.25));
}

void TextEntryTest::whiteTextIsBlackOnlyInTheField()
{
    Writing writing;
    writing.app().setColor(kWhite);
    QCOMPARE(writing.open().palette().color(QPalette::Text), QColor(Qt::black));
    writing.type(QStringLiteral("weiß"));
    writing.press(Qt::Key_Return);
    QVERIFY(writing.view().shapes().front().color == kWhite);

    const Color nearlyWhite{1.0, 1.0, 0.999, 1.0};
    writing.app().setColor(nearlyWhite);
    QVERIFY(writing.open().palette().color(QPalette::Text) != QColor(Qt::black));
}

void TextEntryTest::anEmptyFieldLeavesNoShape()
{
    Writing writing;
    writing.open();
    writing.press(Qt::Key_Return);
    QVERIFY(writing.view().textField() == nullptr);
    QVERIFY(writing.view().shapes().empty());
    QVERIFY(writing.app().shapeOrder().empty());
    QCOMPARE(writing.desktop.keyWindow(), QStringLiteral("overlay 0"));
    // Without a field, a commit does nothing.
    writing.desktop.takeLog();
    writing.view().commitTextField();
    QCOMPARE(writing.desktop.takeLog(), QStringList());
}

void TextEntryTest::spacesAreText()
{
    Writing writing;
    writing.open();
    writing.type(QStringLiteral("  "));
    writing.press(Qt::Key_Return);
    QCOMPARE(writing.texts(), QStringList{"  "});
    writing.open();
    writing.type(QStringLiteral(" a "));
    writing.press(Qt::Key_Return);
    QCOMPARE(writing.texts(), QStringList({"  ", " a "}));
}

void TextEntryTest::escDiscardsTheTextAndKeepsTheModes()
{
    Writing writing;
    writing.app().toggleBoard();
    writing.open();
    writing.type(QStringLiteral("weg"));
    writing.press(Qt::Key_Escape);
    QVERIFY(writing.view().textField() == nullptr);
    QVERIFY(writing.view().shapes().empty());
    QVERIFY(writing.app().drawOn());
    QVERIFY(writing.app().whiteboardOn());
    QCOMPARE(writing.desktop.keyWindow(), QStringLiteral("overlay 0"));
    // The next Esc goes to the canvas.
    writing.view().keyDown({.isEscape = true, .character = 0x1B, .modifiers = {}});
    QVERIFY(!writing.app().interactionOn());
}

void TextEntryTest::aPressCommitsTheTextAndOpensTheNextField()
{
    Writing writing;
    writing.open({100, 100});
    writing.type(QStringLiteral("eins"));
    TextField &next = writing.open({300, 400});
    QCOMPARE(writing.texts(), QStringList{"eins"});
    QCOMPARE(writing.view().shapes().front().start, QPointF(102, 76));
    QCOMPARE(next.text(), QString());
    writing.press(Qt::Key_Return);
    QCOMPARE(writing.texts(), QStringList{"eins"});
}

void TextEntryTest::aPressWithAnotherToolCommitsTheTextAndDraws()
{
    Writing writing;
    writing.open({100, 100});
    writing.type(QStringLiteral("eins"));
    writing.app().setTool(Tool::pen);
    writing.view().mouseDown({{400, 400}, {}});
    QVERIFY(writing.view().textField() == nullptr);
    QCOMPARE(writing.texts(), QStringList{"eins"});
    QVERIFY(writing.view().current().has_value());
    QCOMPARE(writing.desktop.keyWindow(), QStringLiteral("overlay 0"));
}

void TextEntryTest::undoRemovesTextsInOrderWithOtherShapes()
{
    Writing writing;
    for (const QString &text : {QStringLiteral("eins"), QStringLiteral("zwei")}) {
        writing.open();
        writing.type(text);
        writing.press(Qt::Key_Return);
    }
    writing.app().setTool(Tool::pen);
    writing.draw(writing.view());
    writing.app().undoShape();
    QCOMPARE(writing.texts(), QStringList({"eins", "zwei"}));
    writing.app().undoShape();
    QCOMPARE(writing.texts(), QStringList{"eins"});
}

void TextEntryTest::undoOnTheCanvasLeavesTheFieldAlone()
{
    Writing writing;
    writing.open();
    writing.type(QStringLiteral("eins"));
    writing.press(Qt::Key_Return);
    writing.open();
    writing.type(QStringLiteral("zwei"));
    writing.app().undoShape();
    QCOMPARE(writing.texts(), QStringList());
    QCOMPARE(writing.field().text(), QStringLiteral("zwei"));
}

void TextEntryTest::aTextFadesFromItsCommit()
{
    Writing writing;
    writing.app().toggleFade();
    writing.open();
    writing.type(QStringLiteral("a"));
    writing.passTime(60);
    QVERIFY(!writing.app().isFadeTimerRunning());
    writing.press(Qt::Key_Return);
    QVERIFY(writing.app().isFadeTimerRunning());
    writing.passTime(4.7);
    writing.app().tickFade();
    QCOMPARE(writing.texts(), QStringList{"a"});
    writing.passTime(0.2);
    writing.app().tickFade();
    QCOMPARE(writing.texts(), QStringList());
}

void TextEntryTest::withoutAControllerTheTextIsDiscarded()
{
    Writing writing;
    writing.open();
    writing.type(QStringLiteral("weg"));
    writing.view().app = nullptr;
    writing.press(Qt::Key_Return);
    QVERIFY(writing.view().textField() == nullptr);
    QVERIFY(writing.view().shapes().empty());
}

REGISTER_TEST(TextEntryTest)
#include "text_entry_test.moc"
