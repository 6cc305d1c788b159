// The wheel over a text field works as on the canvas beneath.
#include "registered_test.h"
#include "spotlight_radius.h"
#include "text_presentation.h"

using namespace zeigewerk::rig;

namespace {

/// A field is open under the pointer, and the spotlight is on. No window manager, because most of them use
/// Alt and the wheel themselves.
class FieldUnderPointer : public TextPresentation
{
public:
    explicit FieldUnderPointer(ExtraDevice extraDevice = ExtraDevice::None)
        : TextPresentation({.windowManager = WindowManager::None, .extraDevice = extraDevice})
    {
        if (!open(kMiddle) || !session.pointer().moveTo(kMiddle + QPoint(100, 10)))
            throw RigError("no field is open under the pointer");
        hotKey(Key::S);
        if (!eventually([&] { return pixel({10, 10}) == dimmed(beneathColor()) && isTyping(); }))
            throw RigError("there is no spotlight");
    }
};

} // namespace

class TextWheelScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theClassicWheelResizesTheSpotlight();
    void aScrollAxisResizesTheSpotlight();
};

void TextWheelScenarios::theClassicWheelResizesTheSpotlight()
{
    FieldUnderPointer show;
    QVERIFY(show.session.pointer().wheel(2));
    EVENTUALLY(isStored(show.session, kRadius + 2 * kNotch));
    show.session.keyboard().press(Key::Alt);
    QVERIFY(show.session.pointer().wheel(-3));
    EVENTUALLY(isStored(show.session, kRadius - kNotch));
    show.session.keyboard().release(Key::Alt);
    // The horizontal wheel has no effect.
    QVERIFY(show.session.pointer().click(Pointer::WheelRight));
    QVERIFY(show.session.pointer().wheel(1));
    EVENTUALLY(isStored(show.session, kRadius));
}

void TextWheelScenarios::aScrollAxisResizesTheSpotlight()
{
    if (!ScrollMouse::isAvailable())
        QSKIP("this X server comes without its test driver for input devices");
    FieldUnderPointer show(ExtraDevice::ScrollMouse);
    ScrollMouse mouse(show.session.display().devicePath());
    // With the first notch Qt only learns the position of the axis; once the letter is visible, it has.
    QVERIFY(mouse.scroll(-ScrollMouse::kNotch));
    show.session.keyboard().type("m");
    EVENTUALLY(!show.inkAt(kMiddle).isEmpty());
    QVERIFY(mouse.scroll(-ScrollMouse::kNotch));
    EVENTUALLY(isStored(show.session, kRadius + kNotch));
    QVERIFY(mouse.scroll(-ScrollMouse::kNotch));
    EVENTUALLY(isStored(show.session, kRadius + 2 * kNotch));
    QVERIFY(mouse.scroll(3 * ScrollMouse::kNotch));
    EVENTUALLY(isStored(show.session, kRadius - kNotch));
    // Smooth scrolling: a third of a notch scrolls 5 points, which changes the radius by 6.
    QVERIFY(mouse.scroll(-ScrollMouse::kNotch / 3));
    EVENTUALLY(isStored(show.session, kRadius - kNotch + 6));
    show.session.keyboard().press(Key::Alt);
    QVERIFY(mouse.scroll(-ScrollMouse::kNotch));
    EVENTUALLY(isStored(show.session, kRadius + 6));
    show.session.keyboard().release(Key::Alt);
}

REGISTER_GUILESS_TEST(TextWheelScenarios)
#include "text_wheel_scenarios.moc"
