#include "floor.h"
#include "measures.h"

#include <map>

namespace zeigewerk::bench {

namespace {

constexpr int kLatencySamples = 250;
/// Left of the toolbar.
constexpr QPoint kLevelStart(200, 1500);

struct Rate
{
    int perSecond;
    int samples;
    Bars bars;
};
const Rate kRates[] = {{60, 1000, {80.0, 40.0}}, {250, 2000, {}}, {1000, 4000, {45.0, 20.0}}};

void addLatency(Results &results, const std::vector<double> &times, const QString &who, const Bars &median,
                const Bars &high)
{
    results.add(QStringLiteral("motion to pixel, median") + who, percentile(times, 0.5), QStringLiteral("ms"),
                median);
    results.add(QStringLiteral("motion to pixel, p95") + who, percentile(times, 0.95), QStringLiteral("ms"));
    results.add(QStringLiteral("motion to pixel, p99") + who, percentile(times, 0.99), QStringLiteral("ms"),
                high);
}

/// With a stroke begun on the level path; ends it.
std::vector<double> latency(rig::DesktopSession &session, qint64 programId)
{
    Hand hand(session.client());
    hand.moveTo(kLevelStart);
    hand.press();
    awaitRest(session, programId);
    std::vector<double> times = motionToPixel(session, level(kLevelStart), kLatencySamples);
    hand.release();
    return times;
}

/// What 1,000 samples of a new stroke cost.
Costs drawingCosts(rig::DesktopSession &session, qint64 programId, const Rate &rate)
{
    Hand hand(session.client());
    const Path path = wander(kScreen);
    hand.moveTo(path(0));
    hand.press();
    const Costs costs =
        costsOf(session, programId, [&] { hand.follow(path, 1, rate.samples, rate.perSecond); });
    hand.release();
    return costs * (1000.0 / rate.samples);
}

void measureProgram(Results &results, std::map<int, Milliseconds> &spent)
{
    rig::Presentation show(stageSetup());
    show.hotKey(rig::Key::D);
    if (!rig::eventually([&] { return show.hasKeyboard(); }))
        throw rig::RigError("drawing does not begin");
    addLatency(results, latency(show.session, show.program.processId()), {}, {1.0, 0.6}, {3.0, 2.0});
    for (const Rate &rate : kRates) {
        const Costs costs = drawingCosts(show.session, show.program.processId(), rate);
        const QString what = QStringLiteral("1,000 samples at %1 Hz: ").arg(rate.perSecond);
        results.add(what + QStringLiteral("program"), costs.program.count(), QStringLiteral("ms"), rate.bars);
        results.add(what + QStringLiteral("X server"), costs.server.count(), QStringLiteral("ms"));
        results.add(what + QStringLiteral("compositor"), costs.compositor.count(), QStringLiteral("ms"));
        spent[rate.perSecond] = costs.program;
    }
}

void measureFloor(Results &results, const std::map<int, Milliseconds> &spent)
{
    rig::DesktopSession session(stageSetup());
    const rig::WindowBeneath beneath(session, QRect(QPoint(0, 0), kScreen), QColor(0x20, 0x60, 0xA0));
    const Floor floor(session);
    addLatency(results, latency(session, floor.processId()), QStringLiteral(" (floor)"), {}, {});
    for (const Rate &rate : kRates) {
        const Costs costs = drawingCosts(session, floor.processId(), rate);
        const QString what = QStringLiteral("1,000 samples at %1 Hz: ").arg(rate.perSecond);
        results.add(what + QStringLiteral("floor"), costs.program.count(), QStringLiteral("ms"));
        results.add(what + QStringLiteral("X server (floor)"), costs.server.count(), QStringLiteral("ms"));
        results.add(what + QStringLiteral("program / floor"), spent.at(rate.perSecond) / costs.program,
                    QStringLiteral("x"), {5.0, 2.5});
    }
}

} // namespace

void measureInk(Results &results)
{
    std::map<int, Milliseconds> spent;
    results.heading(QStringLiteral("Drawing"));
    measureProgram(results, spent);
    results.heading(QStringLiteral("The floor: the same damage put by a client that does nothing else"));
    measureFloor(results, spent);
}

} // namespace zeigewerk::bench
