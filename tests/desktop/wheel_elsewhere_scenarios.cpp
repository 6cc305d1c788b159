// Alt and the wheel over other applications.

#include "registered_test.h"
#include "spotlight_radius.h"

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

namespace {

bool reaches(Presentation &on, int radius)
{
    return reaches(on.session, radius, on.beneathColor());
}

bool isStored(const Presentation &on, int radius)
{
    return isStored(on.session, radius);
}

/// No window manager, since most of them have a use of their own for Alt and the wheel.
DesktopSetup unmanaged(Mice mice = Mice::XTestOnly)
{
    return {.windowManager = WindowManager::None, .mice = mice};
}

/// Holds Alt for as long as it lives. What is held counts when the wheel is heard, and so does where the
/// pointer is, so neither may change before.
class Alt
{
public:
    explicit Alt(DesktopSession &session)
        : m_keyboard(session.keyboard())
    {
        m_keyboard.press(Key::Alt);
    }
    ~Alt() { m_keyboard.release(Key::Alt); }
    Alt(const Alt &) = delete;
    Alt &operator=(const Alt &) = delete;

private:
    Keyboard &m_keyboard;
};

} // namespace

class WheelElsewhereScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withAltItResizesTheSpotlight();
    void underAWindowManagerToo();
    void withoutTheSpotlightItDoesNothing();
    void overOurOwnWindowsItCountsOnceOrNotAtAll();
    void aScrollAxisIsHeardInsteadOfItsButtons();
    void overTheCanvasAScrollAxisCountsOnce();
    void afterwardsTheProgramSleeps();
};

void WheelElsewhereScenarios::withAltItResizesTheSpotlight()
{
    Presentation on(unmanaged());
    QVERIFY(on.session.pointer().moveTo(kMiddle));
    on.hotKey(Key::S);
    EVENTUALLY(reaches(on, kRadius));
    on.beneath.forget();
    // Without Alt it is not meant. When the hole has followed the pointer, the wheel has been heard.
    QVERIFY(on.session.pointer().wheel(3));
    QVERIFY(on.session.pointer().moveTo({1200, 400}));
    EVENTUALLY(on.pixel({1200, 400}) == on.beneathColor());
    QVERIFY(on.session.pointer().moveTo(kMiddle));
    EVENTUALLY(reaches(on, kRadius));
    {
        const Alt alt(on.session);
        QVERIFY(on.session.pointer().wheel(2));
        EVENTUALLY(reaches(on, kRadius + 2 * kNotch));
        EVENTUALLY(isStored(on, kRadius + 2 * kNotch));
        QVERIFY(on.session.pointer().wheel(-5));
        EVENTUALLY(isStored(on, kRadius - 3 * kNotch));
    }
    EVENTUALLY(reaches(on, kRadius - 3 * kNotch));
    // The application has had all of it.
    EVENTUALLY(on.beneath.presses(Pointer::WheelUp).size() == 5);
    EVENTUALLY(on.beneath.presses(Pointer::WheelDown).size() == 5);
    QVERIFY(on.beneath.hasFocus());

    QCOMPARE(on.program.terminate(), std::optional(0));
    Program again(on.session);
    QVERIFY(again.waitUntilReady());
    on.hotKey(Key::S);
    EVENTUALLY(reaches(on, kRadius - 3 * kNotch));
}

void WheelElsewhereScenarios::underAWindowManagerToo()
{
    Presentation on;
    QVERIFY(on.session.pointer().moveTo(kMiddle));
    on.hotKey(Key::S);
    EVENTUALLY(reaches(on, kRadius));
    const Alt alt(on.session);
    QVERIFY(on.session.pointer().wheel(1));
    EVENTUALLY(isStored(on, kRadius + kNotch));
}

void WheelElsewhereScenarios::withoutTheSpotlightItDoesNothing()
{
    Presentation on(unmanaged());
    QVERIFY(on.session.pointer().moveTo(kMiddle));
    const Alt alt(on.session);
    QVERIFY(on.session.pointer().wheel(3));
    // Clicks are heard, which is no reason to hear the wheel.
    on.session.keyboard().chord({Key::Ctrl}, Key::K);
    QVERIFY(on.session.pointer().wheel(3));
    on.session.keyboard().chord({Key::Ctrl}, Key::S);
    EVENTUALLY(reaches(on, kRadius));
    QVERIFY(on.session.pointer().wheel(1));
    EVENTUALLY(!storedRadius(on.session).isEmpty());
    QCOMPARE(storedRadius(on.session), QString::number(kRadius + kNotch));
}

void WheelElsewhereScenarios::overOurOwnWindowsItCountsOnceOrNotAtAll()
{
    Presentation on(unmanaged());
    QVERIFY(on.session.pointer().moveTo(kMiddle));
    on.hotKey(Key::D);
    on.hotKey(Key::S);
    EVENTUALLY(reaches(on, kRadius));
    EVENTUALLY(on.hasKeyboard());
    const Alt alt(on.session);
    // The canvas hears it, and it is not heard once more.
    QVERIFY(on.session.pointer().wheel(1));
    EVENTUALLY(isStored(on, kRadius + kNotch));

    QVERIFY(on.session.pointer().moveTo(on.toolbar()->geometry.center()));
    QVERIFY(on.session.pointer().wheel(3));
    // The hot key is heard after the wheel, and the pointer has not moved by then.
    on.session.keyboard().chord({Key::Ctrl}, Key::D);
    EVENTUALLY(on.beneath.hasFocus());
    QVERIFY(on.session.pointer().wheel(3));
    on.session.keyboard().chord({Key::Ctrl}, Key::D);
    EVENTUALLY(on.hasKeyboard());
    on.session.keyboard().chord({Key::Ctrl}, Key::D);
    EVENTUALLY(on.beneath.hasFocus());

    // The canvas lets it through now, and so it is heard elsewhere.
    QVERIFY(on.session.pointer().moveTo(kMiddle));
    QVERIFY(on.session.pointer().wheel(1));
    EVENTUALLY(reaches(on, kRadius + 2 * kNotch));
    EVENTUALLY(isStored(on, kRadius + 2 * kNotch));
}

void WheelElsewhereScenarios::aScrollAxisIsHeardInsteadOfItsButtons()
{
    if (!ScrollMouse::isAvailable())
        QSKIP("this X server comes without its test driver for input devices");
    Presentation on(unmanaged(Mice::WithScrollAxis));
    ScrollMouse mouse(on.session.display().devicePath());
    QVERIFY(on.session.pointer().moveTo(kMiddle));
    // What it did before does not count.
    on.beneath.forget();
    QVERIFY(mouse.scroll(7 * ScrollMouse::kNotch));
    EVENTUALLY(on.beneath.presses(Pointer::WheelDown).size() == 7);
    on.hotKey(Key::S);
    EVENTUALLY(reaches(on, kRadius));
    const Alt alt(on.session);
    QVERIFY(mouse.scroll(-ScrollMouse::kNotch));
    EVENTUALLY(isStored(on, kRadius + kNotch));
    QVERIFY(mouse.scroll(3 * ScrollMouse::kNotch));
    EVENTUALLY(isStored(on, kRadius - 2 * kNotch));
    // Fingers: a third of a notch is five points.
    QVERIFY(mouse.scroll(-ScrollMouse::kNotch / 3));
    EVENTUALLY(isStored(on, kRadius - 2 * kNotch + 6));
    // The classic wheel beside it.
    QVERIFY(on.session.pointer().wheel(1));
    EVENTUALLY(isStored(on, kRadius - kNotch + 6));
    QVERIFY(mouse.scroll(-ScrollMouse::kNotch));
    EVENTUALLY(isStored(on, kRadius + 6));
    EVENTUALLY(reaches(on, kRadius + 6));
}

void WheelElsewhereScenarios::overTheCanvasAScrollAxisCountsOnce()
{
    if (!ScrollMouse::isAvailable())
        QSKIP("this X server comes without its test driver for input devices");
    Presentation on(unmanaged(Mice::WithScrollAxis));
    ScrollMouse mouse(on.session.display().devicePath());
    QVERIFY(on.session.pointer().moveTo(kMiddle));
    on.hotKey(Key::D);
    on.hotKey(Key::S);
    EVENTUALLY(reaches(on, kRadius));
    EVENTUALLY(on.hasKeyboard());
    const Alt alt(on.session);
    // The canvas hears each step, and so does the monitor of the whole desktop.
    QVERIFY(mouse.scroll(-ScrollMouse::kNotch));
    EVENTUALLY(isStored(on, kRadius + kNotch));
    QVERIFY(mouse.scroll(3 * ScrollMouse::kNotch));
    EVENTUALLY(isStored(on, kRadius - 2 * kNotch));

    // Elsewhere, only the monitor hears it: what it heard over the canvas does not count any more.
    on.session.keyboard().chord({Key::Ctrl}, Key::D);
    EVENTUALLY(on.beneath.hasFocus());
    QVERIFY(mouse.scroll(-ScrollMouse::kNotch));
    EVENTUALLY(isStored(on, kRadius - kNotch));

    // And the canvas does not count what was scrolled elsewhere.
    on.session.keyboard().chord({Key::Ctrl}, Key::D);
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(mouse.scroll(-ScrollMouse::kNotch));
    EVENTUALLY(isStored(on, kRadius));
    EVENTUALLY(reaches(on, kRadius));
}

void WheelElsewhereScenarios::afterwardsTheProgramSleeps()
{
    Presentation on(unmanaged());
    QVERIFY(on.session.pointer().moveTo(kMiddle));
    on.hotKey(Key::S);
    EVENTUALLY(reaches(on, kRadius));
    {
        const Alt alt(on.session);
        QVERIFY(on.session.pointer().wheel(1));
        EVENTUALLY(isStored(on, kRadius + kNotch));
    }
    on.session.keyboard().tap(Key::Escape);
    EVENTUALLY(on.isUntouched({0, 0, 1700, 1080}));
    EVENTUALLY_WITHIN(10s, sleepsFor(on.program.processId(), 1s));
    // A scroll axis moves in motion events; now nobody asks for those.
    QTimer hand;
    int steps = 0;
    hand.callOnTimeout([&] { steps += on.session.pointer().moveTo(kMiddle + QPoint(steps + 1, 0)); });
    hand.start(50ms);
    QVERIFY(sleepsFor(on.program.processId(), 1s));
    QVERIFY(steps > 0);
}

REGISTER_GUILESS_TEST(WheelElsewhereScenarios)
#include "wheel_elsewhere_scenarios.moc"
