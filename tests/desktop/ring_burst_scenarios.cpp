// Many rings at once: all of them must move, and the cost is printed.
#include "click_rings.h"
#include "registered_test.h"

#include <numeric>

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

namespace {

constexpr int kClicksPerBurst = 200;
/// One for each sixtieth of a second in 450 ms, one for a late step that was due just before the ring opened,
/// one at its beginning, and two when its window appears: the server clears it and sends an Expose event.
constexpr int kMaxFrames = 27 + 1 + 1 + 2;
/// A ring that visibly moves has at least this many.
constexpr int kMinFrames = 3;

/// The measurements of one burst of rings.
struct Burst
{
    QList<qsizetype> frames;
    qsizetype maxAtOnce = 0;
    std::chrono::nanoseconds programTime{};
    std::chrono::nanoseconds serverTime{};

    qsizetype movingRings() const
    {
        return std::count_if(frames.begin(), frames.end(), [](qsizetype n) { return n >= kMinFrames; });
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

    /// Opens that many rings at once and waits until they are gone; nothing if one is missing.
    std::optional<Burst> next()
    {
        Burst burst;
        m_windowsBefore = m_windows.windows().size();
        const auto programBefore = program.cpuTime();
        const auto serverBefore = cpuTime(session.display().serverProcessId());
        session.pointer().clickAtOnce(kClicksPerBurst);
        if (!eventually([&] { return isFinished(burst); }, 60s))
            return std::nullopt;
        burst.programTime = program.cpuTime() - programBefore;
        burst.serverTime = cpuTime(session.display().serverProcessId()) - serverBefore;
        for (const WatchedWindow &ring : newRings())
            burst.frames.append(m_frames.frames(ring.id));
        return burst;
    }

private:
    /// Only uses events that have arrived, so that the measuring itself costs the server nothing.
    QList<WatchedWindow> newRings()
    {
        QList<WatchedWindow> rings;
        for (const WatchedWindow &window : m_windows.windows().sliced(m_windowsBefore)) {
            if (window.wasShown && window.geometry.size() == QSize(kSide, kSide))
                rings.append(window);
        }
        return rings;
    }

    bool isFinished(Burst &burst)
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
    qInfo().noquote() << QString(
                             "%1 rings at once; frames per ring: min %2, median %3, max %4; time per frame, "
                             "including opening and closing: program %5 us, server %6 us")
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
    // The number of frames depends on the load of the machine, so there are several bursts.
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
