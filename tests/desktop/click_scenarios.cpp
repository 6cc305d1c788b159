// Which clicks give a ring.
#include "click_rings.h"
#include "registered_test.h"

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

namespace {

bool setPointerMapping(DesktopSession &session, const QList<std::uint8_t> &map)
{
    xcb_connection_t *c = session.client().connection();
    const auto cookie = xcb_set_pointer_mapping(c, static_cast<std::uint8_t>(map.size()), map.constData());
    const auto reply = owned(xcb_set_pointer_mapping_reply(c, cookie, nullptr));
    return reply && reply->status == XCB_MAPPING_STATUS_SUCCESS;
}

int buttonCount(DesktopSession &session)
{
    xcb_connection_t *c = session.client().connection();
    const auto reply = owned(xcb_get_pointer_mapping_reply(c, xcb_get_pointer_mapping(c), nullptr));
    return reply ? reply->map_len : 0;
}

} // namespace

class ClickScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fastClicksGiveARingEach();
    void clicksAreShownOnlyWhileTheModeIsOn();
    void otherButtonsGiveNone();
    void leftIsWhereTheUserHasPutIt();
    void anOpenMenuOfAnotherProgramHidesNoClick();
    void ourOwnWindowsGiveARingEach();
    void withNobodyClickingItSleeps();
};

void ClickScenarios::fastClicksGiveARingEach()
{
    constexpr int kClicks = 20;
    ClickRings on;
    QVERIFY(on.turnOn());
    on.beneath.forget();
    // At one place, since a ring comes where the pointer is by then.
    const QList<QPoint> places(kClicks, {600, 400});
    QVERIFY(on.session.pointer().moveTo(places.first()));
    for (int i = 0; i < kClicks; ++i)
        QVERIFY(on.session.pointer().click());
    EVENTUALLY(on.ringsAt(places.first()) == kClicks);
    EVENTUALLY(on.areAllGone());
    EVENTUALLY(on.isUntouched({0, 0, 1700, 1080}));
    // None of them took a click.
    EVENTUALLY(on.beneath.presses() == places);
    EVENTUALLY(on.beneath.releases() == places);
    QVERIFY(on.beneath.hasFocus());
    // Nor is there one too many.
    QVERIFY(on.hasSettled());
    QCOMPARE(on.rings().size(), kClicks + 1);
}

void ClickScenarios::clicksAreShownOnlyWhileTheModeIsOn()
{
    ClickRings on;
    QVERIFY(on.session.pointer().clickAt({300, 300}));
    QVERIFY(on.turnOn());
    QVERIFY(on.session.pointer().clickAt({500, 300}));
    EVENTUALLY(on.ringsAt({500, 300}) == 1);
    on.hotKey(Key::K);
    EVENTUALLY(!on.presenter.isOn(button::kClicks));
    QVERIFY(on.session.pointer().clickAt({700, 300}));
    QVERIFY(on.turnOn());
    QVERIFY(on.hasSettled());
    QCOMPARE(on.rings().size(), 2);
}

void ClickScenarios::otherButtonsGiveNone()
{
    ClickRings on;
    QVERIFY(on.turnOn());
    QVERIFY(on.session.pointer().clickAt({300, 300}, Pointer::Middle));
    QVERIFY(on.session.pointer().clickAt({300, 300}, Pointer::Right));
    QVERIFY(on.session.pointer().wheel(2));
    // A press while another button is held is one all the same, and its release is none.
    QVERIFY(on.session.pointer().press(Pointer::Right));
    QVERIFY(on.session.pointer().clickAt({600, 300}));
    QVERIFY(on.session.pointer().release(Pointer::Right));
    EVENTUALLY(on.ringsAt({600, 300}) == 1);
    QVERIFY(on.hasSettled());
    QCOMPARE(on.rings().size(), 2);
}

void ClickScenarios::leftIsWhereTheUserHasPutIt()
{
    ClickRings on;
    QVERIFY(on.turnOn());
    QList<std::uint8_t> map;
    for (int button = 1; button <= buttonCount(on.session); ++button)
        map.append(static_cast<std::uint8_t>(button));
    const QList<std::uint8_t> usual = map;
    map.swapItemsAt(0, 2);
    QVERIFY(setPointerMapping(on.session, map));
    on.beneath.forget();
    // By the button's place on the mouse; what is pressed by it is another question.
    QVERIFY(on.session.pointer().moveTo({600, 300}));
    on.session.pointer().click(Pointer::Right);
    EVENTUALLY(on.beneath.presses(Pointer::Left).size() == 1);
    EVENTUALLY(on.ringsAt({600, 300}) == 1);
    QVERIFY(on.session.pointer().moveTo({800, 300}));
    on.session.pointer().click(Pointer::Left);
    EVENTUALLY(on.beneath.presses(Pointer::Right).size() == 1);
    QVERIFY(on.session.pointer().moveTo({1000, 300}));
    on.session.pointer().click(Pointer::Right);
    EVENTUALLY(on.ringsAt({1000, 300}) == 1);
    QCOMPARE(on.rings().size(), 2);
    QVERIFY(setPointerMapping(on.session, usual));
    QVERIFY(on.hasSettled());
    QCOMPARE(on.rings().size(), 3);
}

void ClickScenarios::anOpenMenuOfAnotherProgramHidesNoClick()
{
    ClickRings on;
    QVERIFY(on.turnOn());
    const Popup menu(on.session, {300, 300, 200, 400}, Qt::green);
    QVERIFY(menu.grabPointer());
    on.beneath.forget();
    for (const QPoint &place : {QPoint(400, 500), QPoint(900, 500)}) {
        QVERIFY(on.session.pointer().clickAt(place));
        EVENTUALLY(on.ringsAt(place) == 1);
    }
    EVENTUALLY(menu.presses() == 2);
    QVERIFY(on.beneath.presses().isEmpty());
    menu.ungrabPointer();
    QVERIFY(on.hasSettled());
    QCOMPARE(on.rings().size(), 3);
}

void ClickScenarios::ourOwnWindowsGiveARingEach()
{
    ClickRings on;
    QVERIFY(on.turnOn());
    on.hotKey(Key::D);
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(on.session.pointer().moveTo({400, 600}));
    QVERIFY(on.session.pointer().press());
    EVENTUALLY(on.ringsAt({400, 600}) == 1);
    QVERIFY(on.session.pointer().moveTo({500, 600}));
    QVERIFY(on.session.pointer().release());
    EVENTUALLY(on.pixel({450, 600}) == kInk);
    const QPoint line = on.presenter.button(button::kLine).extents.center();
    QVERIFY(on.session.pointer().clickAt(line));
    EVENTUALLY(on.presenter.isOn(button::kLine));
    EVENTUALLY(on.ringsAt(line) == 1);
    QVERIFY(on.hasSettled());
    QCOMPARE(on.rings().size(), 3);
}

void ClickScenarios::withNobodyClickingItSleeps()
{
    ClickRings on;
    QVERIFY(on.turnOn());
    for (int i = 0; i < 5; ++i)
        QVERIFY(on.session.pointer().clickAt({300 + 100 * i, 300}));
    EVENTUALLY(on.rings().size() == 5 && on.areAllGone());
    EVENTUALLY_WITHIN(10s, sleepsFor(on.program.processId(), 1s));
    // That the pointer moves is no click.
    QTimer hand;
    int steps = 0;
    hand.callOnTimeout([&] { steps += on.session.pointer().moveTo({300 + steps, 500}); });
    hand.start(50ms);
    QVERIFY(sleepsFor(on.program.processId(), 2s));
    QVERIFY(steps > 0);
}

REGISTER_GUILESS_TEST(ClickScenarios)
#include "click_scenarios.moc"
