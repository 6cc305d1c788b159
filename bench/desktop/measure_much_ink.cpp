#include "measures.h"
#include "stage.h"
#include "wander.h"

#include <array>

namespace zeigewerk::bench {

namespace {

constexpr int kLongStroke = 20'000;
constexpr int kShapes = 10'000;
/// The strokes are measured in turns, since what the machine does beside makes one minute dearer than the
/// next.
constexpr int kTurns = 5;
/// Samples of a turn, at each pace.
constexpr int kMeasured = 200;
/// Per second.
constexpr std::array kPaces{60.0, 1000.0};
/// As fast as the program follows without a queue.
constexpr double kHurry = 2000.0;
/// What "no slower" means among measurements that vary from one to the next.
constexpr Bars kSameCost{1.3, 1.1};

/// A desktop of its own on which a stroke is drawn, and what that costs.
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

    void scribbleAll()
    {
        for (int shape = 0; shape < kShapes; ++shape)
            hand.scribble(scattered(kScreen, shape).toPoint());
    }

    void begin()
    {
        hand.moveTo(m_path(0));
        hand.press();
    }

    /// Goes on with the stroke until it has so many samples.
    void goOnTo(int samples)
    {
        hand.follow(m_path, m_next, samples - m_next, kHurry);
        m_next = samples;
    }

    /// The program's time for the next samples at that pace, for 1,000 of them.
    double costAt(double pace)
    {
        const Costs costs = costsOf(show.session, show.program.processId(),
                                    [&] { hand.follow(m_path, m_next, kMeasured, pace); });
        m_next += kMeasured;
        return costs.program.count() * 1000.0 / kMeasured;
    }

    rig::Presentation show;
    Hand hand;

private:
    Path m_path = wander(kScreen);
    int m_next = 1;
};

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
    Drawing fresh;
    Drawing onLongStroke;
    Drawing aboveShapes;
    aboveShapes.scribbleAll();
    fresh.begin();
    onLongStroke.begin();
    aboveShapes.begin();
    onLongStroke.goOnTo(kLongStroke - kTurns * kMeasured * static_cast<int>(kPaces.size()));
    for (const double pace : kPaces) {
        std::vector<double> costs;
        std::vector<double> ratiosOfLong;
        std::vector<double> ratiosAbove;
        for (int turn = 0; turn < kTurns; ++turn) {
            costs.push_back(fresh.costAt(pace));
            ratiosOfLong.push_back(onLongStroke.costAt(pace) / costs.back());
            ratiosAbove.push_back(aboveShapes.costAt(pace) / costs.back());
        }
        const QString at = QStringLiteral(", at %1 Hz").arg(pace);
        results.add(QStringLiteral("the first of a stroke") + at, percentile(costs, 0.5),
                    QStringLiteral("ms"));
        results.add(QStringLiteral("the last of 20,000") + at, percentile(ratiosOfLong, 0.5),
                    QStringLiteral("x"), kSameCost);
        results.add(QStringLiteral("over 10,000 shapes") + at, percentile(ratiosAbove, 0.5),
                    QStringLiteral("x"), kSameCost);
    }
    aboveShapes.hand.release();
    measureUndo(results, aboveShapes);
}

} // namespace zeigewerk::bench
