// Many rings at once: that all of them move, and what that costs.
#include "click_rings.h"
#include "registered_test.h"

#include <numeric>

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

namespace {

constexpr int kClicksPerBurst = 200;
/// One for each sixtieth of 450 ms, one for a step that was due just before the ring came and is late, one at
/// its beginning, and two as it comes: the server clears the window, and asks for its picture.
constexpr int kMaxFrames = 27 + 1 + 1 + 2;
/// Of a ring that is seen to move.
constexpr int kMinMovingFrames = 3;

/// What one crowd of rings was like.
struct Burst
{
    QList<qsizetype> frames;
    qsizetype maxAtOnce = 0;
    std::chrono::nanoseconds programTime{};
    std::chrono::nanoseconds serverTime{};

    qsizetype movingRings() const
    {
        return std::count_if(frames.begin(), frames.end(), [](qsizetype n) { return n >= kMinMovingFrames; });
    }
};

class RingBursts : public ClickRings
{
public:
    RingBursts()
        : m_windows(session)
        , m_frames(session)
    {
    }

    /// Has that many rings come at once, and comes back when they are gone; nothing if one does not.
    std::optional<Burst> next()
    {
        Burst burst;
        m_windowsBefore = m_windows.windows().size();
        const auto programBefore = program.cpuTime();
        const auto serverBefore = cpuTime(session.display().serverProcessId());
        session.pointer().clickAtOnce(kClicksPerBurst);
        if (!eventually([&] { return isOver(burst); }, 60s))
            return std::nullopt;
        burst.programTime = program.cpuTime() - programBefore;
        burst.serverTime = cpuTime(session.display().serverProcessId()) - serverBefore;
        for (const WatchedWindow &ring : newRings())
            burst.frames.append(m_frames.frames(ring.id));
        return burst;
    }

private:
    /// Asks nothing of the server that it has not told already: what is measured is not the measuring.
    QList<WatchedWindow> newRings()
    {
        QList<WatchedWindow> rings;
        for (const WatchedWindow &window : m_windows.windows().sliced(m_windowsBefore)) {
            if (window.wasShown && window.geometry.size() == QSize(kSide, kSide))
                rings.append(window);
        }
        return rings;
    }

    bool isOver(Burst &burst)
    {
        m_frames.catchUp();
        const QList<WatchedWindow> all = newRings();
        const auto shown = [](const WatchedWindow &ring) { return ring.isShown; };
        burst.maxAtOnce = std::max(burst.maxAtOnce, std::count_if(all.begin(), all.end(), shown));
        const auto gone = [](const WatchedWindow &ring) { return ring.isGone; };
        return all.size() == kClicksPerBurst && std::all_of(all.begin(), all.end(), gone);
    }

    WindowWatch m_windows;
    FrameWatch m_frames;
    qsizetype m_windowsBefore = 0;
};

void print(Burst burst)
{
    std::sort(burst.frames.begin(), burst.frames.end());
    const auto all = std::accumulate(burst.frames.begin(), burst.frames.end(), qsizetype{0});
    const auto perFrame = [&](std::chrono::nanoseconds time) {
        return std::chrono::duration<double, std::micro>(time).count() / static_cast<double>(all);
    };
    qInfo().noquote() << QString("%1 rings at once, frames of one: least %2, middle %3, most %4; a frame of "
                                 "a ring, its coming and going included: program %5 us, server %6 us")
                             .arg(burst.maxAtOnce)
                             .arg(burst.frames.first())
                             .arg(burst.frames.at(burst.frames.size() / 2))
                             .arg(burst.frames.last())
                             .arg(perFrame(burst.programTime), 0, 'f', 1)
                             .arg(perFrame(burst.serverTime), 0, 'f', 1);
}

} // namespace

class RingBurstScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void allRingsOfABurstMove();
};

void RingBurstScenarios::allRingsOfABurstMove()
{
    RingBursts show;
    QVERIFY(show.turnOn());
    QVERIFY(show.session.pointer().moveTo({600, 400}));
    // How many frames there is time for depends on how busy the machine is, so several crowds are looked at.
    constexpr int kMaxBursts = 20;
    qsizetype movingRings = 0;
    for (int i = 0; movingRings < kClicksPerBurst; ++i) {
        QVERIFY(i < kMaxBursts);
        const std::optional<Burst> burst = show.next();
        QVERIFY(burst.has_value());
        print(*burst);
        QVERIFY(*std::max_element(burst->frames.begin(), burst->frames.end()) <= kMaxFrames);
        movingRings += burst->movingRings();
    }
    EVENTUALLY(show.isUntouched({0, 0, 1700, 1080}));
}

REGISTER_GUILESS_TEST(RingBurstScenarios)
#include "ring_burst_scenarios.moc"
