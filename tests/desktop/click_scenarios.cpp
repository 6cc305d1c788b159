// Which clicks show a ring.
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
    void everyFastClickShowsARing();
    void clicksAreShownOnlyWhileTheModeIsOn();
    void otherButtonsShowNoRing();
    void afterSwappingTheLogicalLeftButtonCounts();
    void clicksOnAnotherProgramsMenuShowRings();
    void clicksOnOurOwnWindowsShowRings();
    void withoutClicksTheProgramSleeps();
};

void ClickScenarios::everyFastClickShowsARing()
{
    constexpr int kClicks = 20;
    ClickRings show;
    QVERIFY(show.turnOn());
    show.beneath.forget();
    // All at one place, because a ring opens where the pointer is when the program handles the click.
    const QList<QPoint> places(kClicks, {600, 400});
    QVERIFY(show.session.pointer().moveTo(places.first()));
    for (int i = 0; i < kClicks; ++i)
        QVERIFY(show.session.pointer().click());
    EVENTUALLY(show.ringsAt(places.first()) == kClicks);
    EVENTUALLY(show.areAllGone());
    EVENTUALLY(show.isUntouched({0, 0, 1700, 1080}));
    // The rings intercepted no clicks.
    EVENTUALLY(show.beneath.presses() == places);
    EVENTUALLY(show.beneath.releases() == places);
    QVERIFY(show.beneath.hasFocus());
    // And there is no extra ring.
    QVERIFY(show.settle());
    QCOMPARE(show.rings().size(), kClicks + 1);
}

void ClickScenarios::clicksAreShownOnlyWhileTheModeIsOn()
{
    ClickRings show;
    QVERIFY(show.session.pointer().clickAt({300, 300}));
    QVERIFY(show.turnOn());
    QVERIFY(show.session.pointer().clickAt({500, 300}));
    EVENTUALLY(show.ringsAt({500, 300}) == 1);
    show.hotKey(Key::K);
    EVENTUALLY(!show.presenter.isOn(button::kClicks));
    QVERIFY(show.session.pointer().clickAt({700, 300}));
    QVERIFY(show.turnOn());
    QVERIFY(show.settle());
    QCOMPARE(show.rings().size(), 2);
}

void ClickScenarios::otherButtonsShowNoRing()
{
    ClickRings show;
    QVERIFY(show.turnOn());
    QVERIFY(show.session.pointer().clickAt({300, 300}, Pointer::Middle));
    QVERIFY(show.session.pointer().clickAt({300, 300}, Pointer::Right));
    QVERIFY(show.session.pointer().wheel(2));
    // A press while another button is pressed counts too, and its release does not.
    QVERIFY(show.session.pointer().press(Pointer::Right));
    QVERIFY(show.session.pointer().clickAt({600, 300}));
    QVERIFY(show.session.pointer().release(Pointer::Right));
    EVENTUALLY(show.ringsAt({600, 300}) == 1);
    QVERIFY(show.settle());
    QCOMPARE(show.rings().size(), 2);
}

void ClickScenarios::afterSwappingTheLogicalLeftButtonCounts()
{
    ClickRings show;
    QVERIFY(show.turnOn());
    QList<std::uint8_t> map;
    for (int button = 1; button <= buttonCount(show.session); ++button)
        map.append(static_cast<std::uint8_t>(button));
    const QList<std::uint8_t> original = map;
    map.swapItemsAt(0, 2);
    QVERIFY(setPointerMapping(show.session, map));
    show.beneath.forget();
    // Pointer's buttons are the physical ones, which the mapping swaps.
    QVERIFY(show.session.pointer().moveTo({600, 300}));
    show.session.pointer().click(Pointer::Right);
    EVENTUALLY(show.beneath.presses(Pointer::Left).size() == 1);
    EVENTUALLY(show.ringsAt({600, 300}) == 1);
    QVERIFY(show.session.pointer().moveTo({800, 300}));
    show.session.pointer().click(Pointer::Left);
    EVENTUALLY(show.beneath.presses(Pointer::Right).size() == 1);
    QVERIFY(show.session.pointer().moveTo({1000, 300}));
    show.session.pointer().click(Pointer::Right);
    EVENTUALLY(show.ringsAt({1000, 300}) == 1);
    QCOMPARE(show.rings().size(), 2);
    QVERIFY(setPointerMapping(show.session, original));
    QVERIFY(show.settle());
    QCOMPARE(show.rings().size(), 3);
}

void ClickScenarios::clicksOnAnotherProgramsMenuShowRings()
{
    ClickRings show;
    QVERIFY(show.turnOn());
    const Popup menu(show.session, {300, 300, 200, 400}, Qt::green);
    QVERIFY(menu.grabPointer());
    show.beneath.forget();
    for (const QPoint &place : {QPoint(400, 500), QPoint(900, 500)}) {
        QVERIFY(show.session.pointer().clickAt(place));
        EVENTUALLY(show.ringsAt(place) == 1);
    }
    EVENTUALLY(menu.presses() == 2);
    QVERIFY(show.beneath.presses().isEmpty());
    menu.ungrabPointer();
    QVERIFY(show.settle());
    QCOMPARE(show.rings().size(), 3);
}

void ClickScenarios::clicksOnOurOwnWindowsShowRings()
{
    ClickRings show;
    QVERIFY(show.turnOn());
    show.hotKey(Key::D);
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.session.pointer().moveTo({400, 600}));
    QVERIFY(show.session.pointer().press());
    EVENTUALLY(show.ringsAt({400, 600}) == 1);
    QVERIFY(show.session.pointer().moveTo({500, 600}));
    QVERIFY(show.session.pointer().release());
    EVENTUALLY(show.pixel({450, 600}) == kInk);
    const QPoint line = show.presenter.button(button::kLine).extents.center();
    QVERIFY(show.session.pointer().clickAt(line));
    EVENTUALLY(show.presenter.isOn(button::kLine));
    EVENTUALLY(show.ringsAt(line) == 1);
    QVERIFY(show.settle());
    QCOMPARE(show.rings().size(), 3);
}

void ClickScenarios::withoutClicksTheProgramSleeps()
{
    ClickRings show;
    QVERIFY(show.turnOn());
    for (int i = 0; i < 5; ++i)
        QVERIFY(show.session.pointer().clickAt({300 + 100 * i, 300}));
    EVENTUALLY(show.rings().size() == 5 && show.areAllGone());
    EVENTUALLY_WITHIN(10s, sleepsFor(show.program.processId(), 1s));
    // Motion is not a click.
    QTimer mover;
    int steps = 0;
    mover.callOnTimeout([&] { steps += show.session.pointer().moveTo({300 + steps, 500}); });
    mover.start(50ms);
    QVERIFY(sleepsFor(show.program.processId(), 2s));
    QVERIFY(steps > 0);
}

REGISTER_GUILESS_TEST(ClickScenarios)
#include "click_scenarios.moc"
