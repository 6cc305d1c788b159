// What a presenter types on the screen.
#include "rehearsal.h"

using namespace zeigewerk::rig;

namespace {

constexpr QSize kField(340, 32);
/// What the ink of a line may take around the point of its press, in points: no caret of a short text, and
/// nothing of the next field.
constexpr QRect kAroundPress(-4, -4, 330, 40);

bool isNear(const QRect &a, const QRect &b)
{
    return (a.topLeft() - b.topLeft()).manhattanLength() <= 1 && std::abs(a.right() - b.right()) <= 1 &&
           std::abs(a.bottom() - b.bottom()) <= 1;
}

DesktopSetup withAccessibility(DesktopSetup setup)
{
    setup.accessibility = true;
    return setup;
}

/// A presentation whose presenter has just picked the text tool.
class Writing : public Presentation
{
public:
    explicit Writing(const DesktopSetup &setup = {}, double scale = 1.0)
        : Presentation(withAccessibility(setup),
                       {{"QT_SCREEN_SCALE_FACTORS", QString("DUMMY0=%1;DUMMY1=%1").arg(scale)}})
        , presenter(session, program, scale)
        , m_scale(scale)
    {
        if (!pick(button::kText) || !eventually([&] { return hasKeyboard(); }))
            throw RigError("the presenter cannot write");
    }

    bool pick(const QString &tool)
    {
        return presenter.click(tool) && eventually([&] { return presenter.isOn(tool); });
    }
    /// The open text field's window, if there is exactly one.
    std::optional<WindowInfo> field()
    {
        QList<WindowInfo> fields;
        for (const WindowInfo &window : shownWindows()) {
            if (window.geometry.size() == (QSizeF(kField) * m_scale).toSize())
                fields.append(window);
        }
        return fields.size() == 1 ? std::optional(fields.first()) : std::nullopt;
    }
    /// Whether the field has the keyboard.
    bool isTyping()
    {
        const auto open = field();
        return open && session.client().inputFocus() == open->id;
    }
    /// Whether there is no field, and the canvas has the keyboard.
    bool isDrawing() { return !field() && hasKeyboard(); }
    bool open(QPoint place)
    {
        return session.pointer().clickAt(place) && eventually([&] { return isTyping(); });
    }
    /// What of a line of that press is on the screen.
    QRect inkAt(QPoint press)
    {
        const QRect around(kAroundPress.topLeft() * m_scale, QSizeF(kAroundPress.size()).toSize() * m_scale);
        return session.screenshot().bounds(kInk, around.translated(press), 8).translated(-press);
    }
    /// Types what a German keyboard gives at these places.
    void greet()
    {
        session.keyboard().type("Gr");
        session.keyboard().tap(Key::BracketLeft);
        session.keyboard().tap(Key::Minus);
        session.keyboard().type("e, Welt");
    }
    void command(Key key) { session.keyboard().chord({Key::Ctrl}, key); }

    ToolbarUser presenter;

private:
    double m_scale;
};

} // namespace

class TextScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatIsTypedStaysWhereItWasTyped_data();
    void whatIsTypedStaysWhereItWasTyped();
    void noKeyIsLostHoweverFastTheHand();
    void textGoesToOtherProgramsAndComesFromThem();
    void theMenuOfTheFieldPastes();
    void undoBelongsToTheFieldAndThenToTheCanvas();
    void escDiscardsTheTextOnly();
    void aFieldWaitsWhileTheOtherScreenIsDrawnOn();
    void theKeyboardGoesBackFromTheField();
    void theFieldTakesTheKeyboardAgain();
    void aPinnedFieldLetsClicksThrough();
    void withoutACompositorTheFieldIsWhite();
};

void TextScenarios::whatIsTypedStaysWhereItWasTyped_data()
{
    QTest::addColumn<double>("scale");
    for (const double scale : {1.0, 1.25, 1.5, 2.0})
        QTest::addRow("scale %g", scale) << scale;
}

void TextScenarios::whatIsTypedStaysWhereItWasTyped()
{
    QFETCH(double, scale);
    // Pixels that lie on broken points.
    const QPoint place(303, 401);
    Writing on({.keyboardMap = "de"}, scale);
    QVERIFY(on.open(place));
    on.greet();
    on.session.keyboard().tap(Key::Return);
    EVENTUALLY(on.isDrawing());
    EVENTUALLY(on.inkAt(place).height() > 14 * scale);
    const QRect drawn = on.inkAt(place);

    // The same again in a field over it, whose white covers the first. The caret stands behind a blank, and
    // is left out.
    QVERIFY(on.open(place));
    EVENTUALLY(!isNear(on.inkAt(place), drawn));
    on.greet();
    on.session.keyboard().tap(Key::Space);
    const auto typed = [&] {
        const QRect around = drawn.adjusted(-3, -8, 3, 8).translated(place);
        return on.session.screenshot().bounds(kInk, around, 8).translated(-place);
    };
    EVENTUALLY(isNear(typed(), drawn));
    on.session.keyboard().tap(Key::Return);
    EVENTUALLY(on.isDrawing());
    // Painted twice, its edges are a little bolder.
    EVENTUALLY(isNear(on.inkAt(place), drawn));
}

void TextScenarios::noKeyIsLostHoweverFastTheHand()
{
    Writing on;
    QVERIFY(on.open({100, 100}));
    on.session.keyboard().type("abcdefgh");
    on.session.keyboard().tap(Key::Return);
    EVENTUALLY(on.isDrawing());
    EVENTUALLY(!on.inkAt({100, 100}).isEmpty());
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

void TextScenarios::textGoesToOtherProgramsAndComesFromThem()
{
    Writing on;
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
    Writing on;
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
    Writing on;
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
    Writing on;
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

void TextScenarios::aFieldWaitsWhileTheOtherScreenIsDrawnOn()
{
    const QPoint left(300, 300);
    const QPoint right(1600, 300);
    Writing on({.screens = {{0, 0, 1280, 1024}, {1280, 0, 1600, 900}}});
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

void TextScenarios::theKeyboardGoesBackFromTheField()
{
    Writing on;
    QVERIFY(on.open({200, 500}));
    on.session.keyboard().type("weg");
    on.hotKey(Key::D);
    EVENTUALLY(on.beneath.hasFocus());
    EVENTUALLY(on.isUntouched(Rehearsal::kLeftOfToolbar));
    on.beneath.forget();
    on.session.keyboard().tap(Key::A);
    EVENTUALLY(on.beneath.pressedKeys() == QList<Key>{Key::A});
}

void TextScenarios::theFieldTakesTheKeyboardAgain()
{
    Writing on;
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

void TextScenarios::aPinnedFieldLetsClicksThrough()
{
    Writing on;
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

void TextScenarios::withoutACompositorTheFieldIsWhite()
{
    Writing on({.compositor = Compositor::None});
    QVERIFY(on.open({200, 500}));
    // Right of the placeholder.
    EVENTUALLY(on.session.screenshot().isFilled(Qt::white, {500, 497, 39, 30}));
    on.session.keyboard().type("da");
    on.session.keyboard().tap(Key::Return);
    EVENTUALLY(on.isDrawing());
    EVENTUALLY(!on.inkAt({200, 500}).isEmpty());
    EVENTUALLY(on.isUntouched({300, 450, 400, 200}));
}

QTEST_GUILESS_MAIN(TextScenarios)
#include "text_scenarios.moc"
