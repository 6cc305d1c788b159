// Editing the text in the field.
#include "registered_test.h"
#include "text_presentation.h"

using namespace zeigewerk::rig;

class TextScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textIsExchangedWithOtherPrograms();
    void theContextMenuOfTheFieldPastes();
    void undoAppliesToTheFieldAndThenToTheCanvas();
    void escDiscardsOnlyTheText();
};

void TextScenarios::textIsExchangedWithOtherPrograms()
{
    TextPresentation show;
    ClipboardUser other(show.session);
    const QString text = "Straße nach 東京 😀";
    other.copy(text);
    QVERIFY(show.open({300, 300}));
    show.command(Key::V);
    EVENTUALLY(!show.inkAt({300, 300}).isEmpty());
    show.command(Key::A);
    show.command(Key::X);
    EVENTUALLY(show.session.client().selectionHasOwner("CLIPBOARD"));
    other.copy("something else");
    // Super works like Ctrl.
    show.session.keyboard().chord({Key::Super}, Key::Z);
    show.session.keyboard().chord({Key::Super}, Key::A);
    show.session.keyboard().chord({Key::Super}, Key::C);
    EVENTUALLY(other.paste() == text);
    QVERIFY(show.isTyping());
}

void TextScenarios::theContextMenuOfTheFieldPastes()
{
    TextPresentation show;
    ClipboardUser other(show.session);
    other.copy("abc");
    QVERIFY(show.open({300, 300}));
    const qsizetype windows = show.shownWindows().size();
    QVERIFY(show.session.pointer().clickAt({400, 310}, Pointer::Right));
    EVENTUALLY(show.shownWindows().size() == windows + 1);
    // In an empty field, Paste is the only enabled entry.
    show.session.keyboard().tap(Key::Down);
    show.session.keyboard().tap(Key::Return);
    EVENTUALLY(show.shownWindows().size() == windows);
    EVENTUALLY(show.isTyping());
    show.session.keyboard().tap(Key::Return);
    EVENTUALLY(show.isDrawing());
    EVENTUALLY(!show.inkAt({300, 300}).isEmpty());
}

void TextScenarios::undoAppliesToTheFieldAndThenToTheCanvas()
{
    TextPresentation show;
    ClipboardUser other(show.session);
    const QPoint stroke(600, 300);
    QVERIFY(show.pick(button::kPen));
    QVERIFY(show.session.pointer().drag({stroke, stroke + QPoint(100, 0)}));
    EVENTUALLY(show.pixel(stroke) == kInk);
    QVERIFY(show.pick(button::kText));

    QVERIFY(show.open({200, 500}));
    show.session.keyboard().type("weg");
    show.command(Key::Z);
    show.command(Key::Z);
    show.session.keyboard().type("neu");
    show.command(Key::A);
    show.command(Key::C);
    EVENTUALLY(other.paste() == QString("neu"));
    QCOMPARE(show.pixel(stroke), kInk);

    show.session.keyboard().tap(Key::Return);
    EVENTUALLY(show.isDrawing());
    EVENTUALLY(!show.inkAt({200, 500}).isEmpty());
    show.command(Key::Z);
    EVENTUALLY(show.isUntouched({100, 450, 400, 200}));
    QCOMPARE(show.pixel(stroke), kInk);
    show.command(Key::Z);
    EVENTUALLY(show.pixel(stroke) == show.beneathColor());
}

void TextScenarios::escDiscardsOnlyTheText()
{
    TextPresentation show;
    QVERIFY(show.open({200, 500}));
    show.session.keyboard().type("weg");
    EVENTUALLY(!show.inkAt({200, 500}).isEmpty());
    show.session.keyboard().tap(Key::Escape);
    EVENTUALLY(show.isDrawing());
    EVENTUALLY(show.isUntouched({100, 450, 500, 200}));
    QVERIFY(show.presenter.isOn(button::kDraw));
    show.session.keyboard().tap(Key::Escape);
    EVENTUALLY(show.beneath.hasFocus());
}

REGISTER_GUILESS_TEST(TextScenarios)
#include "text_scenarios.moc"
