// The look and the place of the ring around a click.
#include "click_rings.h"
#include "registered_test.h"

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

namespace {

/// The look of a ring at one moment.
struct RingSample
{
    int width = 0;
    double opacity = 0.0;
};

constexpr int kDiameter = 60; // including the line, at scale 1
constexpr double kFirstScale = 0.35;
constexpr double kLastScale = 1.15;

/// The ring around that place on the window beneath.
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

/// Whether size and opacity belong to the same moment: both always have made the same progress. Without a
/// compositor everything visible is opaque.
bool isConsistent(const RingSample &sample, bool isComposited)
{
    const double scale = double(sample.width) / kDiameter;
    const double grown = (scale - kFirstScale) / (kLastScale - kFirstScale);
    const double faded = (0.9 - sample.opacity) / 0.9;
    return grown > -0.1 && grown < 1.05 && (!isComposited || std::abs(grown - faded) < 0.15);
}

/// Observes the ring until it has disappeared, and counts the steps of its growth. In each step it must
/// become larger and fainter, never only one of the two. On a busy machine one sample may fall between the
/// parts of a step, but not several in a row.
int countGrowthSteps(ClickRings &show, QPoint place)
{
    // Below this the edge of the ring cannot be told from the background.
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
            QTest::qFail("the ring does not disappear", __FILE__, __LINE__);
            break;
        }
        const RingSample sample = sampleOf(show, place);
        if (sample.opacity < kMinOpacity)
            continue;
        // Without a compositor the colour is computed from the small remaining opacity, with larger rounding
        // errors.
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
    // The number of steps seen per ring depends on the load of the machine, so there are several rings.
    constexpr int kMinSteps = 6;
    constexpr int kMaxClicks = 30;
    int steps = 0;
    for (int clicks = 1; steps < kMinSteps; ++clicks) {
        QVERIFY(clicks <= kMaxClicks);
        // The screen may still show the previous ring.
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
    // The check must hit the ring's short life, which may fail on a busy machine.
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
