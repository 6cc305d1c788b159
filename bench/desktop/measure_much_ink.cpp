#include "measures.h"
#include "stage.h"

namespace zeigewerk::bench {

namespace {

constexpr int kLongStroke = 20'000;
constexpr int kMeasured = 1000;
constexpr int kShapes = 10'000;
/// As fast as the program follows without a queue.
constexpr double kHurry = 2000.0;
/// What "no slower" means among measurements that vary from one to the next.
constexpr Bars kSameCost{1.3, 1.1};

/// Drawing, with a stroke of that many samples begun or none.
class Drawing
{
public:
    Drawing()
        : show(stageSetup())
        , hand(show.session.client())
    {
        show.hotKey(rig::Key::D);
        if (!rig::eventually([&] { return show.hasKeyboard(); }))
            throw rig::RigError("drawing does not begin");
    }

    /// The program's time for the path's next 1,000 samples at both paces.
    std::pair<double, double> next(const Path &path, int from)
    {
        const auto at = [&](double rate, int first) {
            return costsOf(show.session, show.program.processId(),
                           [&] { hand.follow(path, first, kMeasured, rate); })
                .program.count();
        };
        const double slow = at(60.0, from);
        return {slow, at(1000.0, from + kMeasured)};
    }

    rig::Presentation show;
    Hand hand;
};

void scribbleAll(Hand &hand)
{
    const Path path = wander(kScreen);
    for (int shape = 0; shape < kShapes; ++shape)
        hand.scribble(path(7 * shape));
}

void measureUndo(Results &results, Drawing &drawing)
{
    constexpr int kTimes = 40;
    rig::DesktopSession &session = drawing.show.session;
    rig::Keyboard &keyboard = session.keyboard();
    std::vector<double> times;
    for (int i = 0; i < kTimes; ++i) {
        // Beside everything else, so that it is seen to go; the second sample is a peak of the scribble.
        const QPoint start(20, 1000);
        drawing.hand.scribble(start);
        awaitRest(session, drawing.show.program.processId());
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
    std::pair<double, double> fresh;
    {
        Drawing drawing;
        const Path path = wander(kScreen);
        drawing.hand.moveTo(path(0));
        drawing.hand.press();
        fresh = drawing.next(path, 1);
        constexpr int kFirstOfLast = kLongStroke - 2 * kMeasured;
        drawing.hand.follow(path, 1 + 2 * kMeasured, kFirstOfLast - 2 * kMeasured, kHurry);
        const auto last = drawing.next(path, 1 + kFirstOfLast);
        drawing.hand.release();
        results.add(QStringLiteral("the first of a stroke, at 60 Hz"), fresh.first, QStringLiteral("ms"));
        results.add(QStringLiteral("the first of a stroke, at 1000 Hz"), fresh.second, QStringLiteral("ms"));
        results.add(QStringLiteral("the last of 20,000, at 60 Hz"), last.first / fresh.first,
                    QStringLiteral("x"), kSameCost);
        results.add(QStringLiteral("the last of 20,000, at 1000 Hz"), last.second / fresh.second,
                    QStringLiteral("x"), kSameCost);
    }
    Drawing drawing;
    scribbleAll(drawing.hand);
    const Path path = wander(kScreen);
    drawing.hand.moveTo(path(0));
    drawing.hand.press();
    const auto above = drawing.next(path, 1);
    drawing.hand.release();
    results.add(QStringLiteral("over 10,000 shapes, at 60 Hz"), above.first / fresh.first,
                QStringLiteral("x"), kSameCost);
    results.add(QStringLiteral("over 10,000 shapes, at 1000 Hz"), above.second / fresh.second,
                QStringLiteral("x"), kSameCost);
    measureUndo(results, drawing);
}

} // namespace zeigewerk::bench
