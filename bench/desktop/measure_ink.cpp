#include "floor.h"
#include "measures.h"
#include "ongoing_stroke.h"

namespace zeigewerk::bench {

namespace {

constexpr int kLatencySamples = 250;
/// Left of the toolbar.
constexpr QPoint kLineStart(200, 1500);

struct Rate
{
    int perSecond;
    int samplesPerRound;
    Bars bars;
};
const Rate kRates[] = {
    {.perSecond = 60, .samplesPerRound = 200, .bars = {80.0, 40.0}},
    {.perSecond = 250, .samplesPerRound = 400, .bars = {}},
    {.perSecond = 1000, .samplesPerRound = 800, .bars = {45.0, 20.0}},
};

/// The costs of 1,000 samples in each round, drawn by the program and by the floor.
struct CostsAtRate
{
    Rate rate;
    std::vector<Costs> program;
    std::vector<Costs> floor;
};

void addLatency(Results &results, const std::vector<double> &times, const QString &suffix, const Bars &median,
                const Bars &high)
{
    results.add(QStringLiteral("motion to pixel, median") + suffix, percentile(times, 0.5),
                QStringLiteral("ms"), median);
    results.add(QStringLiteral("motion to pixel, p95") + suffix, percentile(times, 0.95),
                QStringLiteral("ms"));
    results.add(QStringLiteral("motion to pixel, p99") + suffix, percentile(times, 0.99),
                QStringLiteral("ms"), high);
}

/// With a stroke along the horizontal path, which it begins and ends.
std::vector<double> latency(rig::DesktopSession &session, qint64 programId)
{
    Mouse mouse(session.client());
    mouse.moveTo(kLineStart);
    mouse.press();
    awaitIdle(session, programId);
    std::vector<double> times = motionToPixel(session, horizontalPath(kLineStart), kLatencySamples);
    mouse.release();
    return times;
}

std::vector<CostsAtRate> measureAlternately(OngoingStroke &byProgram, OngoingStroke &byFloor)
{
    std::vector<CostsAtRate> all;
    for (const Rate &rate : kRates) {
        CostsAtRate costs{rate, {}, {}};
        for (int round = 0; round < kRounds; ++round) {
            costs.program.push_back(byProgram.nextCosts(rate.samplesPerRound, rate.perSecond));
            costs.floor.push_back(byFloor.nextCosts(rate.samplesPerRound, rate.perSecond));
        }
        all.push_back(costs);
    }
    return all;
}

/// The median over the rounds of the time that one of the processes has spent.
double median(const std::vector<Costs> &rounds, Milliseconds Costs::*process)
{
    std::vector<double> times;
    times.reserve(rounds.size());
    for (const Costs &costs : rounds)
        times.push_back((costs.*process).count());
    return percentile(times, 0.5);
}

double medianRatio(const CostsAtRate &costs)
{
    std::vector<double> ratios;
    for (std::size_t round = 0; round < costs.program.size(); ++round)
        ratios.push_back(costs.program[round].program / costs.floor[round].program);
    return percentile(ratios, 0.5);
}

void addProgram(Results &results, const CostsAtRate &costs)
{
    const QString what = QStringLiteral("1,000 samples at %1 Hz: ").arg(costs.rate.perSecond);
    results.add(what + QStringLiteral("program"), median(costs.program, &Costs::program),
                QStringLiteral("ms"), costs.rate.bars);
    results.add(what + QStringLiteral("X server"), median(costs.program, &Costs::server),
                QStringLiteral("ms"));
    results.add(what + QStringLiteral("compositor"), median(costs.program, &Costs::compositor),
                QStringLiteral("ms"));
}

void addFloor(Results &results, const CostsAtRate &costs)
{
    const QString what = QStringLiteral("1,000 samples at %1 Hz: ").arg(costs.rate.perSecond);
    results.add(what + QStringLiteral("floor"), median(costs.floor, &Costs::program), QStringLiteral("ms"));
    results.add(what + QStringLiteral("X server (floor)"), median(costs.floor, &Costs::server),
                QStringLiteral("ms"));
    results.add(what + QStringLiteral("program / floor"), medianRatio(costs), QStringLiteral("x"),
                {5.0, 2.5});
}

} // namespace

void measureInk(Results &results)
{
    results.heading(QStringLiteral("Drawing"));
    rig::Presentation show(benchSetup());
    beginDrawing(show);
    addLatency(results, latency(show.session, show.program.processId()), {}, {1.0, 0.6}, {3.0, 2.0});

    rig::DesktopSession session(benchSetup());
    const rig::WindowBeneath beneath(session, QRect(QPoint(0, 0), kScreen), QColor(0x20, 0x60, 0xA0));
    const Floor floor(session);
    const std::vector<double> floorLatency = latency(session, floor.processId());
    OngoingStroke byProgram(show.session, show.program.processId());
    OngoingStroke byFloor(session, floor.processId());
    const std::vector<CostsAtRate> all = measureAlternately(byProgram, byFloor);
    for (const CostsAtRate &costs : all)
        addProgram(results, costs);
    results.heading(QStringLiteral("The floor: the same damage put by a client that does nothing else"));
    addLatency(results, floorLatency, QStringLiteral(" (floor)"), {}, {});
    for (const CostsAtRate &costs : all)
        addFloor(results, costs);
}

} // namespace zeigewerk::bench
