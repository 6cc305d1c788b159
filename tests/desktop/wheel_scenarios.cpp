#include "registered_test.h"
#include "spotlight_radius.h"

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

class WheelScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theWheelResizesTheSpotlightPermanently();
    void theWheelWorksWithoutACompositor();
    void whileDrawingTheWheelDoesNotReachTheWindowBeneath();
    void withoutTheSpotlightTheWheelChangesNothing();
    void withOnlyTheSpotlightTheWheelReachesTheApplications();
    void aScrollAxisCountsInsteadOfItsButtons_data();
    void aScrollAxisCountsInsteadOfItsButtons();
    void earlierScrollingElsewhereDoesNotCount();
};

void WheelScenarios::theWheelResizesTheSpotlightPermanently()
{
    Presentation show;
    QVERIFY(show.session.pointer().moveTo(kMiddle));
    show.hotKey(Key::W);
    show.hotKey(Key::S);
    EVENTUALLY(reaches(show.session, kRadius, Qt::white));
    QCOMPARE(storedRadius(show.session), QString());

    QVERIFY(show.session.pointer().wheel(5));
    EVENTUALLY(reaches(show.session, kRadius + 5 * kNotch, Qt::white));
    QVERIFY(show.session.pointer().wheel(-2));
    const int chosen = kRadius + 3 * kNotch;
    EVENTUALLY(reaches(show.session, chosen, Qt::white));
    EVENTUALLY(isStored(show.session, chosen));

    QCOMPARE(show.program.terminate(), std::optional(0));
    Program restarted(show.session);
    QVERIFY(restarted.waitUntilReady());
    show.hotKey(Key::S);
    EVENTUALLY(reaches(show.session, chosen, show.beneathColor()));
}

void WheelScenarios::theWheelWorksWithoutACompositor()
{
    Presentation show({.compositor = Compositor::None});
    QVERIFY(show.session.pointer().moveTo(kMiddle));
    // Without a compositor the overlay's window has no pixels where nothing is drawn, and another one takes
    // the input.
    show.hotKey(Key::D);
    show.hotKey(Key::S);
    EVENTUALLY(show.hasKeyboard());
    EVENTUALLY(isGrabbedByAnother(show.session, {}, Key::Escape));
    show.beneath.forget();
    QVERIFY(show.session.pointer().wheel(2));
    EVENTUALLY(isStored(show.session, kRadius + 2 * kNotch));
    QVERIFY(show.beneath.presses(Pointer::WheelUp).isEmpty());

    show.hotKey(Key::W);
    EVENTUALLY(reaches(show.session, kRadius + 2 * kNotch, Qt::white));
    QVERIFY(show.session.pointer().wheel(-4));
    EVENTUALLY(reaches(show.session, kRadius - 2 * kNotch, Qt::white));
}

void WheelScenarios::whileDrawingTheWheelDoesNotReachTheWindowBeneath()
{
    Presentation show;
    QVERIFY(show.session.pointer().moveTo(kMiddle));
    show.hotKey(Key::D);
    show.hotKey(Key::S);
    EVENTUALLY(reaches(show.session, kRadius, show.beneathColor()));
    EVENTUALLY(show.hasKeyboard());
    show.beneath.forget();
    QVERIFY(show.session.pointer().wheel(-3));
    EVENTUALLY(reaches(show.session, kRadius - 3 * kNotch, show.beneathColor()));
    QVERIFY(show.beneath.presses(Pointer::WheelDown).isEmpty());
    // The wheel leaves no ink.
    QCOMPARE(show.session.screenshot().count(kInk, {400, 200, 400, 400}), 0);
}

void WheelScenarios::withoutTheSpotlightTheWheelChangesNothing()
{
    Presentation show;
    QVERIFY(show.session.pointer().moveTo(kMiddle));
    show.hotKey(Key::W);
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.session.pointer().wheel(5));
    // Once the stroke is visible, everything before it has been handled.
    QVERIFY(show.session.pointer().drag({{300, 700}, {400, 700}}));
    EVENTUALLY(show.pixel({350, 700}) == kInk);
    QCOMPARE(storedRadius(show.session), QString());
    QVERIFY(show.session.pointer().moveTo(kMiddle));
    show.hotKey(Key::S);
    EVENTUALLY(reaches(show.session, kRadius, Qt::white));
}

void WheelScenarios::withOnlyTheSpotlightTheWheelReachesTheApplications()
{
    Presentation show;
    QVERIFY(show.session.pointer().moveTo(kMiddle));
    show.hotKey(Key::S);
    EVENTUALLY(reaches(show.session, kRadius, show.beneathColor()));
    show.beneath.forget();
    QVERIFY(show.session.pointer().wheel(2));
    EVENTUALLY(show.beneath.presses(Pointer::WheelUp).size() == 2);
    // Once the hole has followed the pointer, the wheel has been handled.
    QVERIFY(show.session.pointer().moveTo({1200, 400}));
    EVENTUALLY(show.pixel({1200, 400}) == show.beneathColor());
    QVERIFY(show.session.pointer().moveTo(kMiddle));
    EVENTUALLY(reaches(show.session, kRadius, show.beneathColor()));
    // A change is stored half a second later.
    THROUGHOUT(700ms, storedRadius(show.session) == QString());
}

void WheelScenarios::aScrollAxisCountsInsteadOfItsButtons_data()
{
    QTest::addColumn<Compositor>("compositor");
    QTest::newRow("composited") << Compositor::Picom;
    QTest::newRow("without a compositor") << Compositor::None;
}

void WheelScenarios::aScrollAxisCountsInsteadOfItsButtons()
{
    QFETCH(Compositor, compositor);
    if (!ScrollMouse::isAvailable())
        QSKIP("this X server comes without its test driver for input devices");
    Presentation show({.compositor = compositor, .extraDevice = ExtraDevice::ScrollMouse});
    ScrollMouse mouse(show.session.display().devicePath());
    QVERIFY(show.session.pointer().moveTo(kMiddle));
    show.hotKey(Key::W);
    show.hotKey(Key::S);
    EVENTUALLY(reaches(show.session, kRadius, Qt::white));
    EVENTUALLY(show.hasKeyboard());
    show.beneath.forget();

    // The first notch counts, and each notch counts once.
    QVERIFY(mouse.scroll(-ScrollMouse::kNotch));
    EVENTUALLY(isStored(show.session, kRadius + kNotch));
    QVERIFY(mouse.scroll(3 * ScrollMouse::kNotch));
    EVENTUALLY(isStored(show.session, kRadius - 2 * kNotch));
    EVENTUALLY(reaches(show.session, kRadius - 2 * kNotch, Qt::white));
    // Smooth scrolling: a third of a notch scrolls 5 points, which changes the radius by 6.
    QVERIFY(mouse.scroll(-ScrollMouse::kNotch / 3));
    EVENTUALLY(isStored(show.session, kRadius - 2 * kNotch + 6));
    // The classic wheel works too.
    QVERIFY(show.session.pointer().wheel(1));
    EVENTUALLY(isStored(show.session, kRadius - kNotch + 6));
    QVERIFY(mouse.scroll(-ScrollMouse::kNotch));
    EVENTUALLY(isStored(show.session, kRadius + 6));
    QVERIFY(show.beneath.presses(Pointer::WheelUp).isEmpty());
}

void WheelScenarios::earlierScrollingElsewhereDoesNotCount()
{
    if (!ScrollMouse::isAvailable())
        QSKIP("this X server comes without its test driver for input devices");
    Presentation show({.extraDevice = ExtraDevice::ScrollMouse});
    ScrollMouse mouse(show.session.display().devicePath());
    QVERIFY(show.session.pointer().moveTo(kMiddle));
    for (const int round : {1, 2}) {
        show.beneath.forget();
        QVERIFY(mouse.scroll(10 * ScrollMouse::kNotch));
        EVENTUALLY(show.beneath.presses(Pointer::WheelDown).size() == 10);
        show.hotKey(Key::W);
        show.hotKey(Key::S);
        EVENTUALLY(show.hasKeyboard());
        EVENTUALLY(reaches(show.session, kRadius + (round - 1) * kNotch, Qt::white));
        QVERIFY(mouse.scroll(-ScrollMouse::kNotch));
        EVENTUALLY(isStored(show.session, kRadius + round * kNotch));
        show.session.keyboard().tap(Key::Escape);
        EVENTUALLY(show.beneath.hasFocus());
        EVENTUALLY(show.pixel({10, 10}) == show.beneathColor());
    }
}

REGISTER_GUILESS_TEST(WheelScenarios)
#include "wheel_scenarios.moc"
