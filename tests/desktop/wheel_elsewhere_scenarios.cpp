// Alt and the wheel over other applications.

#include "registered_test.h"
#include "spotlight_radius.h"

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

namespace {

bool reaches(Presentation &show, int radius)
{
    return reaches(show.session, radius, show.beneathColor());
}

bool isStored(const Presentation &show, int radius)
{
    return isStored(show.session, radius);
}

/// No window manager, because most of them use Alt and the wheel themselves.
DesktopSetup unmanaged(ExtraDevice extraDevice = ExtraDevice::None)
{
    return {.windowManager = WindowManager::None, .extraDevice = extraDevice};
}

/// Holds Alt for as long as it lives. The program checks modifiers and pointer when it handles the wheel, so
/// neither may change before.
class HeldAlt
{
public:
    explicit HeldAlt(DesktopSession &session)
        : m_keyboard(session.keyboard())
    {
        m_keyboard.press(Key::Alt);
    }
    ~HeldAlt() { m_keyboard.release(Key::Alt); }
    HeldAlt(const HeldAlt &) = delete;
    HeldAlt &operator=(const HeldAlt &) = delete;

private:
    Keyboard &m_keyboard;
};

} // namespace

class WheelElsewhereScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void altAndTheWheelResizeTheSpotlight();
    void itWorksUnderAWindowManager();
    void withoutTheSpotlightItDoesNothing();
    void overOurOwnWindowsEachStepCountsAtMostOnce();
    void aScrollAxisCountsInsteadOfItsButtons();
    void overTheCanvasAScrollAxisCountsOnce();
    void theProgramSleepsAfterwards();
};

void WheelElsewhereScenarios::altAndTheWheelResizeTheSpotlight()
{
    Presentation show(unmanaged());
    QVERIFY(show.session.pointer().moveTo(kMiddle));
    show.hotKey(Key::S);
    EVENTUALLY(reaches(show, kRadius));
    show.beneath.forget();
    // Without Alt the wheel has no effect. Once the hole has followed the pointer, the wheel has been
    // handled.
    QVERIFY(show.session.pointer().wheel(3));
    QVERIFY(show.session.pointer().moveTo({1200, 400}));
    EVENTUALLY(show.pixel({1200, 400}) == show.beneathColor());
    QVERIFY(show.session.pointer().moveTo(kMiddle));
    EVENTUALLY(reaches(show, kRadius));
    {
        const HeldAlt alt(show.session);
        QVERIFY(show.session.pointer().wheel(2));
        EVENTUALLY(reaches(show, kRadius + 2 * kNotch));
        EVENTUALLY(isStored(show, kRadius + 2 * kNotch));
        QVERIFY(show.session.pointer().wheel(-5));
        EVENTUALLY(isStored(show, kRadius - 3 * kNotch));
    }
    EVENTUALLY(reaches(show, kRadius - 3 * kNotch));
    // The application has received all of them.
    EVENTUALLY(show.beneath.presses(Pointer::WheelUp).size() == 5);
    EVENTUALLY(show.beneath.presses(Pointer::WheelDown).size() == 5);
    QVERIFY(show.beneath.hasFocus());

    QCOMPARE(show.program.terminate(), std::optional(0));
    Program restarted(show.session);
    QVERIFY(restarted.waitUntilReady());
    show.hotKey(Key::S);
    EVENTUALLY(reaches(show, kRadius - 3 * kNotch));
}

void WheelElsewhereScenarios::itWorksUnderAWindowManager()
{
    Presentation show;
    QVERIFY(show.session.pointer().moveTo(kMiddle));
    show.hotKey(Key::S);
    EVENTUALLY(reaches(show, kRadius));
    const HeldAlt alt(show.session);
    QVERIFY(show.session.pointer().wheel(1));
    EVENTUALLY(isStored(show, kRadius + kNotch));
}

void WheelElsewhereScenarios::withoutTheSpotlightItDoesNothing()
{
    Presentation show(unmanaged());
    QVERIFY(show.session.pointer().moveTo(kMiddle));
    const HeldAlt alt(show.session);
    QVERIFY(show.session.pointer().wheel(3));
    // The program now listens for clicks, which must not make it react to the wheel.
    show.session.keyboard().chord({Key::Ctrl}, Key::K);
    QVERIFY(show.session.pointer().wheel(3));
    show.session.keyboard().chord({Key::Ctrl}, Key::S);
    EVENTUALLY(reaches(show, kRadius));
    QVERIFY(show.session.pointer().wheel(1));
    EVENTUALLY(!storedRadius(show.session).isEmpty());
    QCOMPARE(storedRadius(show.session), QString::number(kRadius + kNotch));
}

void WheelElsewhereScenarios::overOurOwnWindowsEachStepCountsAtMostOnce()
{
    Presentation show(unmanaged());
    QVERIFY(show.session.pointer().moveTo(kMiddle));
    show.hotKey(Key::D);
    show.hotKey(Key::S);
    EVENTUALLY(reaches(show, kRadius));
    EVENTUALLY(show.hasKeyboard());
    const HeldAlt alt(show.session);
    // The canvas handles the wheel, and it is not counted twice.
    QVERIFY(show.session.pointer().wheel(1));
    EVENTUALLY(isStored(show, kRadius + kNotch));

    QVERIFY(show.session.pointer().moveTo(show.toolbar()->geometry.center()));
    QVERIFY(show.session.pointer().wheel(3));
    // The hot key is handled after the wheel, with the pointer still over the toolbar.
    show.session.keyboard().chord({Key::Ctrl}, Key::D);
    EVENTUALLY(show.beneath.hasFocus());
    QVERIFY(show.session.pointer().wheel(3));
    show.session.keyboard().chord({Key::Ctrl}, Key::D);
    EVENTUALLY(show.hasKeyboard());
    show.session.keyboard().chord({Key::Ctrl}, Key::D);
    EVENTUALLY(show.beneath.hasFocus());

    // The canvas lets input through now, so the wheel counts as over another application.
    QVERIFY(show.session.pointer().moveTo(kMiddle));
    QVERIFY(show.session.pointer().wheel(1));
    EVENTUALLY(reaches(show, kRadius + 2 * kNotch));
    EVENTUALLY(isStored(show, kRadius + 2 * kNotch));
}

void WheelElsewhereScenarios::aScrollAxisCountsInsteadOfItsButtons()
{
    if (!ScrollMouse::isAvailable())
        QSKIP("this X server comes without its test driver for input devices");
    Presentation show(unmanaged(ExtraDevice::ScrollMouse));
    ScrollMouse mouse(show.session.display().devicePath());
    QVERIFY(show.session.pointer().moveTo(kMiddle));
    // Earlier scrolling does not count.
    show.beneath.forget();
    QVERIFY(mouse.scroll(7 * ScrollMouse::kNotch));
    EVENTUALLY(show.beneath.presses(Pointer::WheelDown).size() == 7);
    show.hotKey(Key::S);
    EVENTUALLY(reaches(show, kRadius));
    const HeldAlt alt(show.session);
    QVERIFY(mouse.scroll(-ScrollMouse::kNotch));
    EVENTUALLY(isStored(show, kRadius + kNotch));
    QVERIFY(mouse.scroll(3 * ScrollMouse::kNotch));
    EVENTUALLY(isStored(show, kRadius - 2 * kNotch));
    // Smooth scrolling: a third of a notch scrolls 5 points, which changes the radius by 6.
    QVERIFY(mouse.scroll(-ScrollMouse::kNotch / 3));
    EVENTUALLY(isStored(show, kRadius - 2 * kNotch + 6));
    // The classic wheel works too.
    QVERIFY(show.session.pointer().wheel(1));
    EVENTUALLY(isStored(show, kRadius - kNotch + 6));
    QVERIFY(mouse.scroll(-ScrollMouse::kNotch));
    EVENTUALLY(isStored(show, kRadius + 6));
    EVENTUALLY(reaches(show, kRadius + 6));
}

void WheelElsewhereScenarios::overTheCanvasAScrollAxisCountsOnce()
{
    if (!ScrollMouse::isAvailable())
        QSKIP("this X server comes without its test driver for input devices");
    Presentation show(unmanaged(ExtraDevice::ScrollMouse));
    ScrollMouse mouse(show.session.display().devicePath());
    QVERIFY(show.session.pointer().moveTo(kMiddle));
    show.hotKey(Key::D);
    show.hotKey(Key::S);
    EVENTUALLY(reaches(show, kRadius));
    EVENTUALLY(show.hasKeyboard());
    const HeldAlt alt(show.session);
    // The canvas gets each step, and so does the monitor of the whole desktop.
    QVERIFY(mouse.scroll(-ScrollMouse::kNotch));
    EVENTUALLY(isStored(show, kRadius + kNotch));
    QVERIFY(mouse.scroll(3 * ScrollMouse::kNotch));
    EVENTUALLY(isStored(show, kRadius - 2 * kNotch));

    // Elsewhere, only the monitor gets it. The steps over the canvas do not count again.
    show.session.keyboard().chord({Key::Ctrl}, Key::D);
    EVENTUALLY(show.beneath.hasFocus());
    QVERIFY(mouse.scroll(-ScrollMouse::kNotch));
    EVENTUALLY(isStored(show, kRadius - kNotch));

    // Nor does the canvas count the steps elsewhere.
    show.session.keyboard().chord({Key::Ctrl}, Key::D);
    EVENTUALLY(show.hasKeyboard());
    // The canvas reads the axis when the pointer comes onto it, so a step before that is lost. Once there is
    // ink, it has.
    QVERIFY(show.session.pointer().drag({kMiddle, kMiddle + QPoint(20, 0), kMiddle}));
    EVENTUALLY(show.pixel(kMiddle + QPoint(10, 0)) == kInk);
    QVERIFY(mouse.scroll(-ScrollMouse::kNotch));
    EVENTUALLY(isStored(show, kRadius));
    EVENTUALLY(reaches(show, kRadius));
}

void WheelElsewhereScenarios::theProgramSleepsAfterwards()
{
    Presentation show(unmanaged());
    QVERIFY(show.session.pointer().moveTo(kMiddle));
    show.hotKey(Key::S);
    EVENTUALLY(reaches(show, kRadius));
    {
        const HeldAlt alt(show.session);
        QVERIFY(show.session.pointer().wheel(1));
        EVENTUALLY(isStored(show, kRadius + kNotch));
    }
    show.session.keyboard().tap(Key::Escape);
    EVENTUALLY(show.isUntouched({0, 0, 1700, 1080}));
    EVENTUALLY_WITHIN(10s, sleepsFor(show.program.processId(), 1s));
    // A scroll axis sends motion events, which the program no longer selects.
    QTimer mover;
    int steps = 0;
    mover.callOnTimeout([&] { steps += show.session.pointer().moveTo(kMiddle + QPoint(steps + 1, 0)); });
    mover.start(50ms);
    QVERIFY(sleepsFor(show.program.processId(), 1s));
    QVERIFY(steps > 0);
}

REGISTER_GUILESS_TEST(WheelElsewhereScenarios)
#include "wheel_elsewhere_scenarios.moc"
