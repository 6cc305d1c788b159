// Fingers and pens instead of a mouse.
#include "click_rings.h"
#include "registered_test.h"
#include "touch_devices.h"

using namespace zeigewerk::rig;

namespace {

constexpr QSize kRoot(1920, 1080);

} // namespace

class TouchScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aFingerDrawsAndPressesButtons();
    void aTapMakesARing();
    void aPenDrawsAndPressesButtons();
    void devicesTakeTurns();
};

void TouchScenarios::aFingerDrawsAndPressesButtons()
{
    if (!TestDevice::isAvailable())
        QSKIP("this X server comes without its test driver for input devices");
    ClickRings on({.mice = Mice::WithTouchScreen});
    TouchScreen finger(on.session.display().devicePath(), kRoot);
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    on.beneath.forget();
    QVERIFY(finger.stroke({{400, 300}, {450, 300}, {500, 300}}));
    EVENTUALLY(on.pixel({450, 300}) == kInk);
    QVERIFY(finger.stroke({on.presenter.button(button::kColor, 3).extents.center()}));
    EVENTUALLY(on.presenter.isOn(button::kColor, 3));
    QVERIFY(on.hasKeyboard());
    QVERIFY(on.beneath.presses().isEmpty());
    on.hotKey(Key::D);
    EVENTUALLY(on.beneath.hasFocus());
    QVERIFY(finger.stroke({{700, 700}}));
    EVENTUALLY(on.beneath.presses() == QList<QPoint>({{700, 700}}));
}

void TouchScenarios::aTapMakesARing()
{
    if (!TestDevice::isAvailable())
        QSKIP("this X server comes without its test driver for input devices");
    ClickRings on({.mice = Mice::WithTouchScreen});
    TouchScreen finger(on.session.display().devicePath(), kRoot);
    QVERIFY(on.turnOn());
    QVERIFY(finger.stroke({{700, 600}}));
    EVENTUALLY(on.ringsAt({700, 600}) == 1);
    QVERIFY(on.hasSettled());
    QCOMPARE(on.ringsAt({700, 600}), 1);
}

void TouchScenarios::aPenDrawsAndPressesButtons()
{
    if (!TestDevice::isAvailable())
        QSKIP("this X server comes without its test driver for input devices");
    ClickRings on({.mice = Mice::WithTablet});
    Tablet pen(on.session.display().devicePath(), kRoot);
    QVERIFY(on.turnOn());
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(pen.stroke({{400, 300}, {450, 300}, {500, 300}}));
    EVENTUALLY(on.pixel({450, 300}) == kInk);
    EVENTUALLY(on.rings().size() == 1);
    QVERIFY(pen.stroke({on.presenter.button(button::kColor, 3).extents.center()}));
    EVENTUALLY(on.presenter.isOn(button::kColor, 3));
}

void TouchScenarios::devicesTakeTurns()
{
    if (!TestDevice::isAvailable())
        QSKIP("this X server comes without its test driver for input devices");
    ClickRings on({.mice = Mice::WithTablet});
    Tablet pen(on.session.display().devicePath(), kRoot);
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    for (int row = 0; row < 5; ++row) {
        const QPoint place(400, 200 + 100 * row);
        QVERIFY(on.session.pointer().drag({place, place + QPoint(100, 0)}));
        QVERIFY(pen.stroke({place + QPoint(0, 50), place + QPoint(100, 50)}));
        EVENTUALLY(on.pixel(place + QPoint(50, 0)) == kInk && on.pixel(place + QPoint(50, 50)) == kInk);
    }
}

REGISTER_GUILESS_TEST(TouchScenarios)
#include "touch_scenarios.moc"
