// The wheel over a presenter's text field does what it does on the canvas beneath.
#include "registered_test.h"
#include "spotlight_radius.h"
#include "text_presentation.h"

using namespace zeigewerk::rig;

namespace {

/// A field is open under the pointer, and the spotlight on. No window manager, since most of them have a use
/// of their own for Alt and the wheel.
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
    // It is no horizontal wheel.
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
    // From the first notch Qt learns where the axis stands, and no more. When the letter shows, it has.
    QVERIFY(mouse.scroll(-ScrollMouse::kNotch));
    show.session.keyboard().type("m");
    EVENTUALLY(!show.inkAt(kMiddle).isEmpty());
    QVERIFY(mouse.scroll(-ScrollMouse::kNotch));
    EVENTUALLY(isStored(show.session, kRadius + kNotch));
    QVERIFY(mouse.scroll(-ScrollMouse::kNotch));
    EVENTUALLY(isStored(show.session, kRadius + 2 * kNotch));
    QVERIFY(mouse.scroll(3 * ScrollMouse::kNotch));
    EVENTUALLY(isStored(show.session, kRadius - kNotch));
    // Fingers: a third of a notch is five points.
    QVERIFY(mouse.scroll(-ScrollMouse::kNotch / 3));
    EVENTUALLY(isStored(show.session, kRadius - kNotch + 6));
    show.session.keyboard().press(Key::Alt);
    QVERIFY(mouse.scroll(-ScrollMouse::kNotch));
    EVENTUALLY(isStored(show.session, kRadius + 6));
    show.session.keyboard().release(Key::Alt);
}

REGISTER_GUILESS_TEST(TextWheelScenarios)
#include "text_wheel_scenarios.moc"
