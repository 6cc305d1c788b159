// The keyboard while a text field is open, and afterwards.
#include "registered_test.h"
#include "text_presentation.h"

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

class TextKeyboardScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fastTypingLosesNoKeys();
    void theFieldStaysOpenWhileTheOtherScreenIsDrawnOn();
    void theKeyboardReturnsFromTheField();
    void theFieldTakesTheKeyboardBack();
    void aPinnedFieldLetsClicksThrough();
    void aHeldEscOnlyDiscardsTheText();
};

void TextKeyboardScenarios::fastTypingLosesNoKeys()
{
    TextPresentation show;
    QVERIFY(show.open({100, 100}));
    show.session.keyboard().type("abcdefgh");
    show.session.keyboard().tap(Key::Return);
    EVENTUALLY(show.isWritten({100, 100}));
    const QRect slow = show.inkAt({100, 100});
    // Each click closes one field and opens the next.
    const QList<QPoint> places = {{100, 200}, {100, 300}, {100, 400}, {100, 500}, {100, 600}, {100, 700}};
    for (const QPoint &place : places) {
        QVERIFY(show.session.pointer().clickAt(place));
        show.session.keyboard().type("abcdefgh");
    }
    show.session.keyboard().tap(Key::Return);
    EVENTUALLY(show.isDrawing());
    for (const QPoint &place : places)
        EVENTUALLY(show.inkAt(place) == slow);
}

void TextKeyboardScenarios::theFieldStaysOpenWhileTheOtherScreenIsDrawnOn()
{
    const QPoint left(300, 300);
    const QPoint right(1600, 300);
    TextPresentation show({.screens = {{0, 0, 1280, 1024}, {1280, 0, 1600, 900}}});
    QVERIFY(show.open(left));
    show.session.keyboard().type("hier");
    QVERIFY(show.pick(button::kPen));
    QVERIFY(show.session.pointer().drag({right, right + QPoint(100, 0)}));
    EVENTUALLY(show.pixel(right) == kInk);
    QVERIFY(show.field().has_value());
    EVENTUALLY(show.hasKeyboard() && !show.isTyping());
    // Without the keyboard it shows no caret: the ink is that of the text.
    EVENTUALLY(!show.inkAt(left).isEmpty());

    // A press on the field's own screen finishes the text; the drag draws a stroke there.
    const QRect typed = show.inkAt(left);
    QVERIFY(show.session.pointer().drag({{300, 700}, {400, 700}}));
    EVENTUALLY(!show.field() && show.pixel({350, 700}) == kInk);
    EVENTUALLY(isNear(show.inkAt(left), typed));
}

void TextKeyboardScenarios::theKeyboardReturnsFromTheField()
{
    TextPresentation show;
    QVERIFY(show.open({200, 500}));
    show.session.keyboard().type("weg");
    show.hotKey(Key::D);
    EVENTUALLY(show.beneath.hasFocus());
    EVENTUALLY(show.isUntouched(ToolbarPresentation::kLeftOfToolbar));
    show.beneath.forget();
    show.session.keyboard().tap(Key::A);
    EVENTUALLY(show.beneath.pressedKeys() == QList<Key>{Key::A});
}

void TextKeyboardScenarios::theFieldTakesTheKeyboardBack()
{
    TextPresentation show;
    QVERIFY(show.open({200, 500}));
    show.session.client().setInputFocus(show.beneath.id());
    EVENTUALLY(show.isTyping());
    show.session.keyboard().type("da");
    show.session.keyboard().tap(Key::Return);
    EVENTUALLY(show.isDrawing());
    EVENTUALLY(!show.inkAt({200, 500}).isEmpty());
    show.session.keyboard().tap(Key::Escape);
    EVENTUALLY(show.beneath.hasFocus());
}

void TextKeyboardScenarios::aPinnedFieldLetsClicksThrough()
{
    TextPresentation show;
    QVERIFY(show.open({200, 500}));
    show.session.keyboard().type("da");
    EVENTUALLY(!show.inkAt({200, 500}).isEmpty());
    show.hotKey(Key::P);
    EVENTUALLY(show.beneath.hasFocus());
    QVERIFY(show.field().has_value());
    show.beneath.forget();
    QVERIFY(show.session.pointer().clickAt({300, 510}));
    EVENTUALLY(show.beneath.presses() == QList<QPoint>{QPoint(300, 510)});
    // After unpinning, the field continues to take input.
    show.hotKey(Key::P);
    EVENTUALLY(show.isTyping());
}

void TextKeyboardScenarios::aHeldEscOnlyDiscardsTheText()
{
    TextPresentation show;
    QVERIFY(show.open({200, 500}));
    show.session.keyboard().type("weg");
    show.session.keyboard().press(Key::Escape);
    EVENTUALLY(show.isDrawing());
    // The server repeats a held key after 660 ms, and then 25 times per second.
    THROUGHOUT(1200ms, show.isDrawing());
    // Other keys work meanwhile, and so does the next press of Esc.
    QVERIFY(show.pick(button::kPen));
    const QPoint stroke(600, 300);
    QVERIFY(show.session.pointer().drag({stroke, stroke + QPoint(100, 0)}));
    EVENTUALLY(show.pixel(stroke) == kInk);
    show.command(Key::Z);
    EVENTUALLY(show.pixel(stroke) == show.beneathColor());
    show.session.keyboard().release(Key::Escape);
    show.session.keyboard().tap(Key::Escape);
    EVENTUALLY(show.beneath.hasFocus());
}

REGISTER_GUILESS_TEST(TextKeyboardScenarios)
#include "text_keyboard_scenarios.moc"
