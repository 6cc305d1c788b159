// Who has the keyboard while a presenter's text field is open, and after it.
#include "registered_test.h"
#include "text_presentation.h"

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

class TextKeyboardScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noKeyIsLostHoweverFastTheHand();
    void aFieldWaitsWhileTheOtherScreenIsDrawnOn();
    void theKeyboardGoesBackFromTheField();
    void theFieldTakesTheKeyboardAgain();
    void aPinnedFieldLetsClicksThrough();
    void aHeldEscDiscardsTheTextAndEndsNothingMore();
};

void TextKeyboardScenarios::noKeyIsLostHoweverFastTheHand()
{
    TextPresentation on;
    QVERIFY(on.open({100, 100}));
    on.session.keyboard().type("abcdefgh");
    on.session.keyboard().tap(Key::Return);
    EVENTUALLY(on.isWritten({100, 100}));
    const QRect slow = on.inkAt({100, 100});
    // Each click closes one field and opens the next.
    const QList<QPoint> places = {{100, 200}, {100, 300}, {100, 400}, {100, 500}, {100, 600}, {100, 700}};
    for (const QPoint &place : places) {
        QVERIFY(on.session.pointer().clickAt(place));
        on.session.keyboard().type("abcdefgh");
    }
    on.session.keyboard().tap(Key::Return);
    EVENTUALLY(on.isDrawing());
    for (const QPoint &place : places)
        EVENTUALLY(on.inkAt(place) == slow);
}

void TextKeyboardScenarios::aFieldWaitsWhileTheOtherScreenIsDrawnOn()
{
    const QPoint left(300, 300);
    const QPoint right(1600, 300);
    TextPresentation on({.screens = {{0, 0, 1280, 1024}, {1280, 0, 1600, 900}}});
    QVERIFY(on.open(left));
    on.session.keyboard().type("hier");
    QVERIFY(on.pick(button::kPen));
    QVERIFY(on.session.pointer().drag({right, right + QPoint(100, 0)}));
    EVENTUALLY(on.pixel(right) == kInk);
    QVERIFY(on.field().has_value());
    EVENTUALLY(on.hasKeyboard() && !on.isTyping());
    // Without the keyboard it has no caret: the ink is the text's.
    EVENTUALLY(!on.inkAt(left).isEmpty());

    // A press on its own screen takes the text over; what is drawn there is a stroke.
    const QRect typed = on.inkAt(left);
    QVERIFY(on.session.pointer().drag({{300, 700}, {400, 700}}));
    EVENTUALLY(!on.field() && on.pixel({350, 700}) == kInk);
    EVENTUALLY(isNear(on.inkAt(left), typed));
}

void TextKeyboardScenarios::theKeyboardGoesBackFromTheField()
{
    TextPresentation on;
    QVERIFY(on.open({200, 500}));
    on.session.keyboard().type("weg");
    on.hotKey(Key::D);
    EVENTUALLY(on.beneath.hasFocus());
    EVENTUALLY(on.isUntouched(ToolbarPresentation::kLeftOfToolbar));
    on.beneath.forget();
    on.session.keyboard().tap(Key::A);
    EVENTUALLY(on.beneath.pressedKeys() == QList<Key>{Key::A});
}

void TextKeyboardScenarios::theFieldTakesTheKeyboardAgain()
{
    TextPresentation on;
    QVERIFY(on.open({200, 500}));
    on.session.client().setInputFocus(on.beneath.id());
    EVENTUALLY(on.isTyping());
    on.session.keyboard().type("da");
    on.session.keyboard().tap(Key::Return);
    EVENTUALLY(on.isDrawing());
    EVENTUALLY(!on.inkAt({200, 500}).isEmpty());
    on.session.keyboard().tap(Key::Escape);
    EVENTUALLY(on.beneath.hasFocus());
}

void TextKeyboardScenarios::aPinnedFieldLetsClicksThrough()
{
    TextPresentation on;
    QVERIFY(on.open({200, 500}));
    on.session.keyboard().type("da");
    EVENTUALLY(!on.inkAt({200, 500}).isEmpty());
    on.hotKey(Key::P);
    EVENTUALLY(on.beneath.hasFocus());
    QVERIFY(on.field().has_value());
    on.beneath.forget();
    QVERIFY(on.session.pointer().clickAt({300, 510}));
    EVENTUALLY(on.beneath.presses() == QList<QPoint>{QPoint(300, 510)});
    // Drawn on again, the field goes on where it was.
    on.hotKey(Key::P);
    EVENTUALLY(on.isTyping());
}

void TextKeyboardScenarios::aHeldEscDiscardsTheTextAndEndsNothingMore()
{
    TextPresentation on;
    QVERIFY(on.open({200, 500}));
    on.session.keyboard().type("weg");
    on.session.keyboard().press(Key::Escape);
    EVENTUALLY(on.isDrawing());
    // The server repeats a held key after 660 ms, and then 25 times a second.
    THROUGHOUT(1200ms, on.isDrawing());
    // Other keys act meanwhile, and so does the next press of this one.
    QVERIFY(on.pick(button::kPen));
    const QPoint stroke(600, 300);
    QVERIFY(on.session.pointer().drag({stroke, stroke + QPoint(100, 0)}));
    EVENTUALLY(on.pixel(stroke) == kInk);
    on.command(Key::Z);
    EVENTUALLY(on.pixel(stroke) == on.beneathColor());
    on.session.keyboard().release(Key::Escape);
    on.session.keyboard().tap(Key::Escape);
    EVENTUALLY(on.beneath.hasFocus());
}

REGISTER_GUILESS_TEST(TextKeyboardScenarios)
#include "text_keyboard_scenarios.moc"
