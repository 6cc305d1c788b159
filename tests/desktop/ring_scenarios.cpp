// How the ring round a click looks, and where it stands.
#include "click_rings.h"
#include "registered_test.h"

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

namespace {

/// How a ring looks at one moment.
struct RingLook
{
    int width = 0;
    double opacity = 0.0;
};

constexpr int kDiameter = 60; // the line included, at scale 1
constexpr double kFirstScale = 0.35;
constexpr double kLastScale = 1.15;

/// The ring round that place on the window beneath.
RingLook lookOf(ClickRings &on, QPoint place)
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

/// Whether size and opacity belong to the same moment: both go the same way from first to last. Without a
/// compositor nothing that shows is fainter than the rest.
bool isARing(const RingLook &look, bool isComposited)
{
    const double scale = double(look.width) / kDiameter;
    const double grown = (scale - kFirstScale) / (kLastScale - kFirstScale);
    const double faded = (0.9 - look.opacity) / 0.9;
    return grown > -0.1 && grown < 1.05 && (!isComposited || std::abs(grown - faded) < 0.15);
}

/// Looks at the ring until it has gone, and counts the moments at which it had grown. Each time it must be
/// larger and fainter than before, and never one without the other. On a busy machine a look may fall between
/// the parts of one step, but not several looks in turn.
int growthSeen(ClickRings &on, QPoint place)
{
    // Fainter than this, its edge is lost in the ground.
    constexpr double kFaint = 0.15;
    constexpr double kRounding = 0.02;
    constexpr int kMostBetweenParts = 3;
    int moments = 0;
    int strangeLooks = 0;
    RingLook before = {0, 1.0};
    const bool isComposited = on.session.isComposited();
    const QDeadlineTimer deadline(kDeadline);
    while (!on.areAllGone()) {
        if (deadline.hasExpired()) {
            QTest::qFail("the ring does not go", __FILE__, __LINE__);
            break;
        }
        const RingLook look = lookOf(on, place);
        if (look.opacity < kFaint)
            continue;
        // Without a compositor the colour is made of what little is left of it, and rounded more than that.
        const bool isFainter = !isComposited || look.opacity <= before.opacity + kRounding;
        if (!isARing(look, isComposited) || look.width < before.width || !isFainter) {
            if (++strangeLooks < kMostBetweenParts)
                continue;
            const QString what = QString("%1 wide at opacity %2").arg(look.width).arg(look.opacity);
            QTest::qFail(qPrintable(what), __FILE__, __LINE__);
            break;
        }
        strangeLooks = 0;
        moments += look.width > before.width;
        before = look;
    }
    return moments;
}

} // namespace

class RingScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aRingGrowsAndFades_data();
    void aRingGrowsAndFades();
    void aClickNearTheEdgeKeepsItsRingWhole();
    void aRingIsAboveTheToolbar();
};

void RingScenarios::aRingGrowsAndFades_data()
{
    QTest::addColumn<Compositor>("compositor");
    QTest::newRow("composited") << Compositor::Picom;
    QTest::newRow("without a compositor") << Compositor::None;
}

void RingScenarios::aRingGrowsAndFades()
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
        // The picture may still have the ring of before.
        EVENTUALLY(on.isUntouched(QRect(place - QPoint(40, 40), QSize(81, 81))));
        QVERIFY(on.session.pointer().clickAt(place));
        EVENTUALLY(on.rings().size() == clicks);
        moments += growthSeen(on, place);
        QVERIFY(!QTest::currentTestFailed());
    }
    EVENTUALLY(on.isUntouched({0, 0, 1700, 1080}));
}

void RingScenarios::aClickNearTheEdgeKeepsItsRingWhole()
{
    ClickRings on;
    QVERIFY(on.turnOn());
    for (const QPoint &place : {QPoint(10, 500), QPoint(600, 10), QPoint(900, 1069), QPoint(0, 0)}) {
        QVERIFY(on.session.pointer().clickAt(place));
        EVENTUALLY(on.ringsAt(place) == 1);
    }
    EVENTUALLY(on.areAllGone());
}

void RingScenarios::aRingIsAboveTheToolbar()
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

REGISTER_GUILESS_TEST(RingScenarios)
#include "ring_scenarios.moc"
