// How a presenter edits the text in the field.
#include "registered_test.h"
#include "text_presentation.h"

using namespace zeigewerk::rig;

class TextScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textGoesToOtherProgramsAndComesFromThem();
    void theMenuOfTheFieldPastes();
    void undoBelongsToTheFieldAndThenToTheCanvas();
    void escDiscardsTheTextOnly();
};

void TextScenarios::textGoesToOtherProgramsAndComesFromThem()
{
    TextPresentation on;
    ClipboardUser other(on.session);
    const QString text = "Straße nach 東京 😀";
    other.copy(text);
    QVERIFY(on.open({300, 300}));
    on.command(Key::V);
    EVENTUALLY(!on.inkAt({300, 300}).isEmpty());
    on.command(Key::A);
    on.command(Key::X);
    EVENTUALLY(on.session.client().selectionHasOwner("CLIPBOARD"));
    other.copy("something else");
    // Super is as good as Ctrl.
    on.session.keyboard().chord({Key::Super}, Key::Z);
    on.session.keyboard().chord({Key::Super}, Key::A);
    on.session.keyboard().chord({Key::Super}, Key::C);
    EVENTUALLY(other.paste() == text);
    QVERIFY(on.isTyping());
}

void TextScenarios::theMenuOfTheFieldPastes()
{
    TextPresentation on;
    ClipboardUser other(on.session);
    other.copy("abc");
    QVERIFY(on.open({300, 300}));
    const qsizetype windows = on.shownWindows().size();
    QVERIFY(on.session.pointer().clickAt({400, 310}, Pointer::Right));
    EVENTUALLY(on.shownWindows().size() == windows + 1);
    // Nothing else can be done to a field without text.
    on.session.keyboard().tap(Key::Down);
    on.session.keyboard().tap(Key::Return);
    EVENTUALLY(on.shownWindows().size() == windows);
    EVENTUALLY(on.isTyping());
    on.session.keyboard().tap(Key::Return);
    EVENTUALLY(on.isDrawing());
    EVENTUALLY(!on.inkAt({300, 300}).isEmpty());
}

void TextScenarios::undoBelongsToTheFieldAndThenToTheCanvas()
{
    TextPresentation on;
    ClipboardUser other(on.session);
    const QPoint stroke(600, 300);
    QVERIFY(on.pick(button::kPen));
    QVERIFY(on.session.pointer().drag({stroke, stroke + QPoint(100, 0)}));
    EVENTUALLY(on.pixel(stroke) == kInk);
    QVERIFY(on.pick(button::kText));

    QVERIFY(on.open({200, 500}));
    on.session.keyboard().type("weg");
    on.command(Key::Z);
    on.command(Key::Z);
    on.session.keyboard().type("neu");
    on.command(Key::A);
    on.command(Key::C);
    EVENTUALLY(other.paste() == QString("neu"));
    QCOMPARE(on.pixel(stroke), kInk);

    on.session.keyboard().tap(Key::Return);
    EVENTUALLY(on.isDrawing());
    EVENTUALLY(!on.inkAt({200, 500}).isEmpty());
    on.command(Key::Z);
    EVENTUALLY(on.isUntouched({100, 450, 400, 200}));
    QCOMPARE(on.pixel(stroke), kInk);
    on.command(Key::Z);
    EVENTUALLY(on.pixel(stroke) == on.beneathColor());
}

void TextScenarios::escDiscardsTheTextOnly()
{
    TextPresentation on;
    QVERIFY(on.open({200, 500}));
    on.session.keyboard().type("weg");
    EVENTUALLY(!on.inkAt({200, 500}).isEmpty());
    on.session.keyboard().tap(Key::Escape);
    EVENTUALLY(on.isDrawing());
    EVENTUALLY(on.isUntouched({100, 450, 500, 200}));
    QVERIFY(on.presenter.isOn(button::kDraw));
    on.session.keyboard().tap(Key::Escape);
    EVENTUALLY(on.beneath.hasFocus());
}

REGISTER_GUILESS_TEST(TextScenarios)
#include "text_scenarios.moc"
