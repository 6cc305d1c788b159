// Touch screens and pens instead of a mouse.
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
    void aTapShowsARing();
    void aPenDrawsAndPressesButtons();
    void devicesCanAlternate();
};

void TouchScenarios::aFingerDrawsAndPressesButtons()
{
    if (!TestDevice::isAvailable())
        QSKIP("this X server comes without its test driver for input devices");
    ClickRings show({.extraDevice = ExtraDevice::TouchScreen});
    TouchScreen finger(show.session.display().devicePath(), kRoot);
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    show.beneath.forget();
    QVERIFY(finger.stroke({{400, 300}, {450, 300}, {500, 300}}));
    EVENTUALLY(show.pixel({450, 300}) == kInk);
    QVERIFY(finger.stroke({show.presenter.button(button::kColor, 3).extents.center()}));
    EVENTUALLY(show.presenter.isOn(button::kColor, 3));
    QVERIFY(show.hasKeyboard());
    QVERIFY(show.beneath.presses().isEmpty());
    show.hotKey(Key::D);
    EVENTUALLY(show.beneath.hasFocus());
    QVERIFY(finger.stroke({{700, 700}}));
    EVENTUALLY(show.beneath.presses() == QList<QPoint>({{700, 700}}));
}

void TouchScenarios::aTapShowsARing()
{
    if (!TestDevice::isAvailable())
        QSKIP("this X server comes without its test driver for input devices");
    ClickRings show({.extraDevice = ExtraDevice::TouchScreen});
    TouchScreen finger(show.session.display().devicePath(), kRoot);
    QVERIFY(show.turnOn());
    QVERIFY(finger.stroke({{700, 600}}));
    EVENTUALLY(show.ringsAt({700, 600}) == 1);
    QVERIFY(show.settle());
    QCOMPARE(show.ringsAt({700, 600}), 1);
}

void TouchScenarios::aPenDrawsAndPressesButtons()
{
    if (!TestDevice::isAvailable())
        QSKIP("this X server comes without its test driver for input devices");
    ClickRings show({.extraDevice = ExtraDevice::Tablet});
    Tablet pen(show.session.display().devicePath(), kRoot);
    QVERIFY(show.turnOn());
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(pen.stroke({{400, 300}, {450, 300}, {500, 300}}));
    EVENTUALLY(show.pixel({450, 300}) == kInk);
    EVENTUALLY(show.rings().size() == 1);
    QVERIFY(pen.stroke({show.presenter.button(button::kColor, 3).extents.center()}));
    EVENTUALLY(show.presenter.isOn(button::kColor, 3));
}

void TouchScenarios::devicesCanAlternate()
{
    if (!TestDevice::isAvailable())
        QSKIP("this X server comes without its test driver for input devices");
    ClickRings show({.extraDevice = ExtraDevice::Tablet});
    Tablet pen(show.session.display().devicePath(), kRoot);
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    for (int row = 0; row < 5; ++row) {
        const QPoint place(400, 200 + 100 * row);
        QVERIFY(show.session.pointer().drag({place, place + QPoint(100, 0)}));
        QVERIFY(pen.stroke({place + QPoint(0, 50), place + QPoint(100, 50)}));
        EVENTUALLY(show.pixel(place + QPoint(50, 0)) == kInk && show.pixel(place + QPoint(50, 50)) == kInk);
    }
}

REGISTER_GUILESS_TEST(TouchScenarios)
#include "touch_scenarios.moc"
