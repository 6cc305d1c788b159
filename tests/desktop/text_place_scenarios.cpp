// Where a presenter's text stands: in the field, and then on the canvas.
#include "writing.h"

using namespace zeigewerk::rig;

class TextPlaceScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatIsTypedStaysWhereItWasTyped_data();
    void whatIsTypedStaysWhereItWasTyped();
    void withoutACompositorTheFieldIsWhite();
};

void TextPlaceScenarios::whatIsTypedStaysWhereItWasTyped_data()
{
    QTest::addColumn<double>("scale");
    for (const double scale : {1.0, 1.25, 1.5, 2.0})
        QTest::addRow("scale %g", scale) << scale;
}

void TextPlaceScenarios::whatIsTypedStaysWhereItWasTyped()
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

void TextPlaceScenarios::withoutACompositorTheFieldIsWhite()
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

QTEST_GUILESS_MAIN(TextPlaceScenarios)
#include "text_place_scenarios.moc"
