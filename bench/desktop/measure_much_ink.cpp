#include "measures.h"
#include "ongoing_stroke.h"
#include "pen_path.h"

#include <array>
#include <optional>

namespace zeigewerk::bench {

namespace {

constexpr int kLongStroke = 20'000;
constexpr int kShapes = 10'000;
/// Samples of a round, at each rate.
constexpr int kMeasured = 200;
/// Per second.
constexpr std::array kSampleRates{60.0, 1000.0};
/// What "no slower" means for measurements that vary.
constexpr Bars kSameCost{1.3, 1.1};

/// A separate desktop on which the program draws.
struct Drawing
{
    Drawing() { beginDrawing(show); }

    double nextCost(double rate) { return stroke->nextCosts(kMeasured, rate).program.count(); }

    rig::Presentation show{benchSetup()};
    Mouse mouse{show.session.client()};
    std::optional<OngoingStroke> stroke;
};

void scribbleAll(Mouse &mouse)
{
    for (int shape = 0; shape < kShapes; ++shape)
        mouse.scribble(scattered(kScreen, shape).toPoint());
}

void measureUndo(Results &results, Drawing &drawing)
{
    constexpr int kTimes = 40;
    rig::DesktopSession &session = drawing.show.session;
    rig::Keyboard &keyboard = session.keyboard();
    std::vector<double> times;
    for (int i = 0; i < kTimes; ++i) {
        // Away from everything else, so that its removal is visible; the second sample is a peak of the
        // scribble.
        const QPoint start(20, 1000);
        drawing.mouse.scribble(start);
        awaitIdle(session, drawing.show.program.processId());
        PixelWatch watch(session.client(), start + QPoint(20, 15));
        keyboard.press(rig::Key::Ctrl);
        const auto begin = std::chrono::steady_clock::now();
        keyboard.press(rig::Key::Z);
        times.push_back(watch.untilChanged(begin).count());
        keyboard.release(rig::Key::Z);
        keyboard.release(rig::Key::Ctrl);
    }
    results.add(QStringLiteral("undo of one among 10,000 shapes, to pixel, median"), percentile(times, 0.5),
                QStringLiteral("ms"), {5.0, 2.0});
}

} // namespace

void measureMuchInk(Results &results)
{
    results.heading(QStringLiteral("Much ink: the program's time for 1,000 samples"));
    Drawing fresh;
    Drawing longStroke;
    Drawing aboveShapes;
    scribbleAll(aboveShapes.mouse);
    for (Drawing *drawing : {&fresh, &longStroke, &aboveShapes})
        drawing->stroke.emplace(drawing->show.session, drawing->show.program.processId());
    constexpr int kMeasuredSamples =
        static_cast<int>(kSampleRates.size()) * kRounds * (OngoingStroke::kWarmUp + kMeasured);
    longStroke.stroke->continueTo(kLongStroke - kMeasuredSamples);
    for (const double rate : kSampleRates) {
        std::vector<double> costs;
        std::vector<double> ratiosOfLong;
        std::vector<double> ratiosAbove;
        for (int round = 0; round < kRounds; ++round) {
            costs.push_back(fresh.nextCost(rate));
            ratiosOfLong.push_back(longStroke.nextCost(rate) / costs.back());
            ratiosAbove.push_back(aboveShapes.nextCost(rate) / costs.back());
        }
        const QString at = QStringLiteral(", at %1 Hz").arg(rate);
        results.add(QStringLiteral("the first of a stroke") + at, percentile(costs, 0.5),
                    QStringLiteral("ms"));
        results.add(QStringLiteral("the last of 20,000") + at, percentile(ratiosOfLong, 0.5),
                    QStringLiteral("x"), kSameCost);
        results.add(QStringLiteral("over 10,000 shapes") + at, percentile(ratiosAbove, 0.5),
                    QStringLiteral("x"), kSameCost);
    }
    aboveShapes.stroke.reset();
    measureUndo(results, aboveShapes);
}

} // namespace zeigewerk::bench
