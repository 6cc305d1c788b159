#include "click_rings.h"

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

Q_DECLARE_METATYPE(zeigewerk::rig::Compositor)

class ClickScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fastClicksGiveARingEach();
    void clicksAreShownOnlyWhileTheModeIsOn();
    void otherButtonsGiveNone();
    void leftIsWhereTheUserHasPutIt();
    void aRingGrowsAndFades_data();
    void aRingGrowsAndFades();
    void aClickNearTheEdgeKeepsItsRingWhole();
    void anOpenMenuOfAnotherProgramHidesNoClick();
    void ourOwnWindowsGiveARingEach();
    void aRingIsAboveTheToolbar();
    void withNobodyClickingItSleeps();
};

namespace {

/// How a ring looks at one moment.
struct Look
{
    int width = 0;
    double opacity = 0.0;
};

constexpr int kDiameter = 60; // the line included, at scale 1
constexpr double kFirstScale = 0.35;
constexpr double kLastScale = 1.15;

/// The ring round that place on the window beneath.
Look lookOf(ClickRings &on, QPoint place)
{
    const Screenshot seen = on.session.screenshot();
    const int ground = on.beneathColor().red();
    const QRect around(place - QPoint(40, 40), QSize(81, 81));
    QRect box;
    int most = 0;
    for (int y = around.top(); y <= around.bottom(); ++y) {
        for (int x = around.left(); x <= around.right(); ++x) {
            const int more = seen.pixel({x, y}).red() - ground;
            most = std::max(most, more);
            if (more > 8)
                box |= QRect(x, y, 1, 1);
        }
    }
    return {box.width(), double(most) / (kInk.red() - ground)};
}

/// Whether size and opacity belong to the same moment: both go the same way from first to last.
bool isARing(const Look &look)
{
    const double scale = double(look.width) / kDiameter;
    const double grown = (scale - kFirstScale) / (kLastScale - kFirstScale);
    const double faded = (0.9 - look.opacity) / 0.9;
    return grown > -0.1 && grown < 1.05 && std::abs(grown - faded) < 0.15;
}

/// Looks at the ring until it has gone, and counts the moments at which it had grown. Each time it must be
/// larger and fainter than before, and never one without the other.
int growthSeen(ClickRings &on, QPoint place)
{
    // Fainter than this, its edge is lost in the ground.
    constexpr double kFaint = 0.15;
    constexpr double kRounding = 0.02;
    int moments = 0;
    Look before = {0, 1.0};
    const QDeadlineTimer deadline(kDeadline);
    while (!on.areAllGone()) {
        if (deadline.hasExpired()) {
            QTest::qFail("the ring does not go", __FILE__, __LINE__);
            break;
        }
        const Look look = lookOf(on, place);
        if (look.opacity < kFaint)
            continue;
        if (!isARing(look) || look.width < before.width || look.opacity > before.opacity + kRounding) {
            const QString what = QString("%1 wide at opacity %2").arg(look.width).arg(look.opacity);
            QTest::qFail(qPrintable(what), __FILE__, __LINE__);
            break;
        }
        moments += look.width > before.width;
        before = look;
    }
    return moments;
}

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

void ClickScenarios::aRingGrowsAndFades_data()
{
    QTest::addColumn<Compositor>("compositor");
    QTest::newRow("composited") << Compositor::Picom;
    QTest::newRow("without a compositor") << Compositor::None;
}

void ClickScenarios::aRingGrowsAndFades()
{
    QFETCH(Compositor, compositor);
    ClickRings on({.compositor = compositor});
    QVERIFY(on.turnOn());
    const QPoint place(600, 400);
    // How many moments of one ring are seen depends on how busy the machine is, so several rings are looked
    // at.
    constexpr int kMoments = 6;
    constexpr int kMostClicks = 30;
    int moments = 0;
    for (int clicks = 1; moments < kMoments; ++clicks) {
        QVERIFY(clicks <= kMostClicks);
        QVERIFY(on.session.pointer().clickAt(place));
        EVENTUALLY(on.rings().size() == clicks);
        moments += growthSeen(on, place);
        QVERIFY(!QTest::currentTestFailed());
    }
    EVENTUALLY(on.isUntouched({0, 0, 1700, 1080}));
}

void ClickScenarios::aClickNearTheEdgeKeepsItsRingWhole()
{
    ClickRings on;
    QVERIFY(on.turnOn());
    for (const QPoint &place : {QPoint(10, 500), QPoint(600, 10), QPoint(900, 1069), QPoint(0, 0)}) {
        QVERIFY(on.session.pointer().clickAt(place));
        EVENTUALLY(on.ringsAt(place) == 1);
    }
    EVENTUALLY(on.areAllGone());
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

void ClickScenarios::aRingIsAboveTheToolbar()
{
    ClickRings on;
    QVERIFY(on.turnOn());
    const xcb_window_t toolbar = on.presenter.window().id;
    const QPoint place = on.presenter.background();
    // Looked at while the ring lives, which a busy machine may miss.
    EVENTUALLY_WITHIN(20s, [&] {
        if (!on.session.pointer().clickAt(place) || !eventually([&] { return !on.areAllGone(); }, 200ms))
            return false;
        const QList<xcb_window_t> stack = on.session.client().stackedChildren(on.session.client().root());
        const qsizetype ring = stack.indexOf(on.rings().last().id);
        return ring >= 0 && ring > stack.indexOf(toolbar);
    }());
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

QTEST_GUILESS_MAIN(ClickScenarios)
#include "click_scenarios.moc"
