#include "registered_test.h"
#include "spotlight_radius.h"

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

class WheelScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theWheelWidensTheSpotlightForGood();
    void withoutACompositorTheWheelIsHeardToo();
    void whileDrawingNothingReachesTheWindowBeneath();
    void withoutTheSpotlightTheWheelChangesNothing();
    void overTheSpotlightAloneTheWheelBelongsToTheApplications();
    void aScrollAxisIsHeardInsteadOfItsButtons_data();
    void aScrollAxisIsHeardInsteadOfItsButtons();
    void whatAScrollAxisDidElsewhereDoesNotCount();
};

void WheelScenarios::theWheelWidensTheSpotlightForGood()
{
    Presentation on;
    QVERIFY(on.session.pointer().moveTo(kMiddle));
    on.hotKey(Key::W);
    on.hotKey(Key::S);
    EVENTUALLY(reaches(on.session, kRadius, Qt::white));
    QCOMPARE(storedRadius(on.session), QString());

    QVERIFY(on.session.pointer().wheel(5));
    EVENTUALLY(reaches(on.session, kRadius + 5 * kNotch, Qt::white));
    QVERIFY(on.session.pointer().wheel(-2));
    const int chosen = kRadius + 3 * kNotch;
    EVENTUALLY(reaches(on.session, chosen, Qt::white));
    EVENTUALLY(isStored(on.session, chosen));

    QCOMPARE(on.program.terminate(), std::optional(0));
    Program again(on.session);
    QVERIFY(again.waitUntilReady());
    on.hotKey(Key::S);
    EVENTUALLY(reaches(on.session, chosen, on.beneathColor()));
}

void WheelScenarios::withoutACompositorTheWheelIsHeardToo()
{
    Presentation on({.compositor = Compositor::None});
    QVERIFY(on.session.pointer().moveTo(kMiddle));
    // Drawing on nothing, the overlay's own window is empty there and another one takes the pointer.
    on.hotKey(Key::D);
    on.hotKey(Key::S);
    EVENTUALLY(on.hasKeyboard());
    EVENTUALLY(isGrabbedByAnother(on.session, {}, Key::Escape));
    on.beneath.forget();
    QVERIFY(on.session.pointer().wheel(2));
    EVENTUALLY(isStored(on.session, kRadius + 2 * kNotch));
    QVERIFY(on.beneath.presses(Pointer::WheelUp).isEmpty());

    on.hotKey(Key::W);
    EVENTUALLY(reaches(on.session, kRadius + 2 * kNotch, Qt::white));
    QVERIFY(on.session.pointer().wheel(-4));
    EVENTUALLY(reaches(on.session, kRadius - 2 * kNotch, Qt::white));
}

void WheelScenarios::whileDrawingNothingReachesTheWindowBeneath()
{
    Presentation on;
    QVERIFY(on.session.pointer().moveTo(kMiddle));
    on.hotKey(Key::D);
    on.hotKey(Key::S);
    EVENTUALLY(reaches(on.session, kRadius, on.beneathColor()));
    EVENTUALLY(on.hasKeyboard());
    on.beneath.forget();
    QVERIFY(on.session.pointer().wheel(-3));
    EVENTUALLY(reaches(on.session, kRadius - 3 * kNotch, on.beneathColor()));
    QVERIFY(on.beneath.presses(Pointer::WheelDown).isEmpty());
    // The wheel leaves no ink either.
    QCOMPARE(on.session.screenshot().count(kInk, {400, 200, 400, 400}), 0);
}

void WheelScenarios::withoutTheSpotlightTheWheelChangesNothing()
{
    Presentation on;
    QVERIFY(on.session.pointer().moveTo(kMiddle));
    on.hotKey(Key::W);
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(on.session.pointer().wheel(5));
    // A stroke is answered after what came before it.
    QVERIFY(on.session.pointer().drag({{300, 700}, {400, 700}}));
    EVENTUALLY(on.pixel({350, 700}) == kInk);
    QCOMPARE(storedRadius(on.session), QString());
    QVERIFY(on.session.pointer().moveTo(kMiddle));
    on.hotKey(Key::S);
    EVENTUALLY(reaches(on.session, kRadius, Qt::white));
}

void WheelScenarios::overTheSpotlightAloneTheWheelBelongsToTheApplications()
{
    Presentation on;
    QVERIFY(on.session.pointer().moveTo(kMiddle));
    on.hotKey(Key::S);
    EVENTUALLY(reaches(on.session, kRadius, on.beneathColor()));
    on.beneath.forget();
    QVERIFY(on.session.pointer().wheel(2));
    EVENTUALLY(on.beneath.presses(Pointer::WheelUp).size() == 2);
    // When the hole has followed the pointer, the wheel has been heard.
    QVERIFY(on.session.pointer().moveTo({1200, 400}));
    EVENTUALLY(on.pixel({1200, 400}) == on.beneathColor());
    QVERIFY(on.session.pointer().moveTo(kMiddle));
    EVENTUALLY(reaches(on.session, kRadius, on.beneathColor()));
    // A change is stored half a second later.
    THROUGHOUT(700ms, storedRadius(on.session) == QString());
}

void WheelScenarios::aScrollAxisIsHeardInsteadOfItsButtons_data()
{
    QTest::addColumn<Compositor>("compositor");
    QTest::newRow("composited") << Compositor::Picom;
    QTest::newRow("without a compositor") << Compositor::None;
}

void WheelScenarios::aScrollAxisIsHeardInsteadOfItsButtons()
{
    QFETCH(Compositor, compositor);
    if (!ScrollMouse::isAvailable())
        QSKIP("this X server comes without its test driver for input devices");
    Presentation on({.compositor = compositor, .mice = Mice::WithScrollAxis});
    ScrollMouse mouse(on.session.display().devicePath());
    QVERIFY(on.session.pointer().moveTo(kMiddle));
    on.hotKey(Key::W);
    on.hotKey(Key::S);
    EVENTUALLY(reaches(on.session, kRadius, Qt::white));
    EVENTUALLY(on.hasKeyboard());
    on.beneath.forget();

    // The first notch counts already, and each counts once.
    QVERIFY(mouse.scroll(-ScrollMouse::kNotch));
    EVENTUALLY(isStored(on.session, kRadius + kNotch));
    QVERIFY(mouse.scroll(3 * ScrollMouse::kNotch));
    EVENTUALLY(isStored(on.session, kRadius - 2 * kNotch));
    EVENTUALLY(reaches(on.session, kRadius - 2 * kNotch, Qt::white));
    // Fingers: a third of a notch is five points.
    QVERIFY(mouse.scroll(-ScrollMouse::kNotch / 3));
    EVENTUALLY(isStored(on.session, kRadius - 2 * kNotch + 6));
    // The classic wheel beside it.
    QVERIFY(on.session.pointer().wheel(1));
    EVENTUALLY(isStored(on.session, kRadius - kNotch + 6));
    QVERIFY(mouse.scroll(-ScrollMouse::kNotch));
    EVENTUALLY(isStored(on.session, kRadius + 6));
    QVERIFY(on.beneath.presses(Pointer::WheelUp).isEmpty());
}

void WheelScenarios::whatAScrollAxisDidElsewhereDoesNotCount()
{
    if (!ScrollMouse::isAvailable())
        QSKIP("this X server comes without its test driver for input devices");
    Presentation on({.mice = Mice::WithScrollAxis});
    ScrollMouse mouse(on.session.display().devicePath());
    QVERIFY(on.session.pointer().moveTo(kMiddle));
    for (const int round : {1, 2}) {
        on.beneath.forget();
        QVERIFY(mouse.scroll(10 * ScrollMouse::kNotch));
        EVENTUALLY(on.beneath.presses(Pointer::WheelDown).size() == 10);
        on.hotKey(Key::W);
        on.hotKey(Key::S);
        EVENTUALLY(on.hasKeyboard());
        EVENTUALLY(reaches(on.session, kRadius + (round - 1) * kNotch, Qt::white));
        QVERIFY(mouse.scroll(-ScrollMouse::kNotch));
        EVENTUALLY(isStored(on.session, kRadius + round * kNotch));
        on.session.keyboard().tap(Key::Escape);
        EVENTUALLY(on.beneath.hasFocus());
        EVENTUALLY(on.pixel({10, 10}) == on.beneathColor());
    }
}

REGISTER_GUILESS_TEST(WheelScenarios)
#include "wheel_scenarios.moc"
