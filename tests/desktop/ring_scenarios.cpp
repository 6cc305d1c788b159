// How the ring round a click looks, and where it stands.
#include "click_rings.h"
#include "registered_test.h"

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

namespace {

/// How a ring looks at one moment.
struct RingSample
{
    int width = 0;
    double opacity = 0.0;
};

constexpr int kDiameter = 60; // the line included, at scale 1
constexpr double kFirstScale = 0.35;
constexpr double kLastScale = 1.15;

/// The ring round that place on the window beneath.
RingSample sampleOf(ClickRings &show, QPoint place)
{
    const Screenshot seen = show.session.screenshot();
    const int ground = show.beneathColor().red();
    const QRect around(place - QPoint(40, 40), QSize(81, 81));
    QRect box;
    int maxDelta = 0;
    for (int y = around.top(); y <= around.bottom(); ++y) {
        for (int x = around.left(); x <= around.right(); ++x) {
            const int delta = seen.pixel({x, y}).red() - ground;
            maxDelta = std::max(maxDelta, delta);
            if (delta > 8)
                box |= QRect(x, y, 1, 1);
        }
    }
    return {box.width(), double(maxDelta) / (kInk.red() - ground)};
}

/// Whether size and opacity belong to the same moment: both go the same way from first to last. Without a
/// compositor nothing that shows is fainter than the rest.
bool isConsistent(const RingSample &sample, bool isComposited)
{
    const double scale = double(sample.width) / kDiameter;
    const double grown = (scale - kFirstScale) / (kLastScale - kFirstScale);
    const double faded = (0.9 - sample.opacity) / 0.9;
    return grown > -0.1 && grown < 1.05 && (!isComposited || std::abs(grown - faded) < 0.15);
}

/// Looks at the ring until it has gone, and counts the moments at which it had grown. Each time it must be
/// larger and fainter than before, and never one without the other. On a busy machine a look may fall between
/// the parts of one step, but not several looks in turn.
int countGrowthSteps(ClickRings &show, QPoint place)
{
    // Fainter than this, its edge is lost in the ground.
    constexpr double kMinOpacity = 0.15;
    constexpr double kRounding = 0.02;
    constexpr int kMaxInconsistentSamples = 3;
    int steps = 0;
    int inconsistentSamples = 0;
    RingSample previous = {0, 1.0};
    const bool isComposited = show.session.isComposited();
    const QDeadlineTimer deadline(kDeadline);
    while (!show.areAllGone()) {
        if (deadline.hasExpired()) {
            QTest::qFail("the ring does not go", __FILE__, __LINE__);
            break;
        }
        const RingSample sample = sampleOf(show, place);
        if (sample.opacity < kMinOpacity)
            continue;
        // Without a compositor the colour is made of what little is left of it, and rounded more than that.
        const bool isFainter = !isComposited || sample.opacity <= previous.opacity + kRounding;
        if (!isConsistent(sample, isComposited) || sample.width < previous.width || !isFainter) {
            if (++inconsistentSamples < kMaxInconsistentSamples)
                continue;
            const QString message = QString("%1 wide at opacity %2").arg(sample.width).arg(sample.opacity);
            QTest::qFail(qPrintable(message), __FILE__, __LINE__);
            break;
        }
        inconsistentSamples = 0;
        steps += sample.width > previous.width;
        previous = sample;
    }
    return steps;
}

} // namespace

class RingScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aRingGrowsAndFades_data();
    void aRingGrowsAndFades();
    void aRingNearTheEdgeStaysCentred();
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
    ClickRings show({.compositor = compositor});
    QVERIFY(show.turnOn());
    const QPoint place(600, 400);
    // How many moments of one ring are seen depends on how busy the machine is, so several rings are looked
    // at.
    constexpr int kMinSteps = 6;
    constexpr int kMaxClicks = 30;
    int steps = 0;
    for (int clicks = 1; steps < kMinSteps; ++clicks) {
        QVERIFY(clicks <= kMaxClicks);
        // The picture may still have the ring of before.
        EVENTUALLY(show.isUntouched(QRect(place - QPoint(40, 40), QSize(81, 81))));
        QVERIFY(show.session.pointer().clickAt(place));
        EVENTUALLY(show.rings().size() == clicks);
        steps += countGrowthSteps(show, place);
        QVERIFY(!QTest::currentTestFailed());
    }
    EVENTUALLY(show.isUntouched({0, 0, 1700, 1080}));
}

void RingScenarios::aRingNearTheEdgeStaysCentred()
{
    ClickRings show;
    QVERIFY(show.turnOn());
    for (const QPoint &place : {QPoint(10, 500), QPoint(600, 10), QPoint(900, 1069), QPoint(0, 0)}) {
        QVERIFY(show.session.pointer().clickAt(place));
        EVENTUALLY(show.ringsAt(place) == 1);
    }
    EVENTUALLY(show.areAllGone());
}

void RingScenarios::aRingIsAboveTheToolbar()
{
    ClickRings show;
    QVERIFY(show.turnOn());
    const xcb_window_t toolbar = show.presenter.window().id;
    const QPoint place = show.presenter.background();
    // Looked at while the ring lives, which a busy machine may miss.
    EVENTUALLY_WITHIN(20s, [&] {
        if (!show.session.pointer().clickAt(place) || !eventually([&] { return !show.areAllGone(); }, 200ms))
            return false;
        const QList<xcb_window_t> stack = show.session.client().stackedChildren(show.session.client().root());
        const qsizetype ring = stack.indexOf(show.rings().last().id);
        return ring >= 0 && ring > stack.indexOf(toolbar);
    }());
}

REGISTER_GUILESS_TEST(RingScenarios)
#include "ring_scenarios.moc"
