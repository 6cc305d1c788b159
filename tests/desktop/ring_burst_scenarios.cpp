// Many rings at once: that all of them move, and what that costs.
#include "click_rings.h"
#include "registered_test.h"

#include <numeric>

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

namespace {

constexpr int kManyClicks = 200;
/// One for each sixtieth of 450 ms, one for a step that was due just before the ring came and is late, one at
/// its beginning, and two as it comes: the server clears the window, and asks for its picture.
constexpr int kMostFrames = 27 + 1 + 1 + 2;
/// Of a ring that is seen to move.
constexpr int kFewFrames = 3;

/// What one crowd of rings was like.
struct Crowd
{
    QList<qsizetype> frames;
    qsizetype mostAtOnce = 0;
    std::chrono::nanoseconds ofProgram{};
    std::chrono::nanoseconds ofServer{};

    qsizetype moving() const
    {
        return std::count_if(frames.begin(), frames.end(), [](qsizetype n) { return n >= kFewFrames; });
    }
};

class Crowds : public ClickRings
{
public:
    Crowds()
        : m_windows(session)
        , m_frames(session)
    {
    }

    /// Has that many rings come at once, and comes back when they are gone; nothing if one does not.
    std::optional<Crowd> next()
    {
        Crowd crowd;
        m_known = m_windows.windows().size();
        const auto programBefore = program.cpuTime();
        const auto serverBefore = cpuTime(session.display().serverProcessId());
        session.pointer().clickAtOnce(kManyClicks);
        if (!eventually([&] { return isOver(crowd); }, 60s))
            return std::nullopt;
        crowd.ofProgram = program.cpuTime() - programBefore;
        crowd.ofServer = cpuTime(session.display().serverProcessId()) - serverBefore;
        for (const WatchedWindow &ring : newRings())
            crowd.frames.append(m_frames.frames(ring.id));
        return crowd;
    }

private:
    /// Asks nothing of the server that it has not told already: what is measured is not the measuring.
    QList<WatchedWindow> newRings()
    {
        QList<WatchedWindow> rings;
        for (const WatchedWindow &window : m_windows.windows().sliced(m_known)) {
            if (window.wasShown && window.geometry.size() == QSize(kSide, kSide))
                rings.append(window);
        }
        return rings;
    }

    bool isOver(Crowd &crowd)
    {
        m_frames.catchUp();
        const QList<WatchedWindow> all = newRings();
        const auto shown = [](const WatchedWindow &ring) { return ring.isShown; };
        crowd.mostAtOnce = std::max(crowd.mostAtOnce, std::count_if(all.begin(), all.end(), shown));
        const auto gone = [](const WatchedWindow &ring) { return ring.isGone; };
        return all.size() == kManyClicks && std::all_of(all.begin(), all.end(), gone);
    }

    WindowWatch m_windows;
    FrameWatch m_frames;
    qsizetype m_known = 0;
};

void print(Crowd crowd)
{
    std::sort(crowd.frames.begin(), crowd.frames.end());
    const auto all = std::accumulate(crowd.frames.begin(), crowd.frames.end(), qsizetype{0});
    const auto perFrame = [&](std::chrono::nanoseconds time) {
        return std::chrono::duration<double, std::micro>(time).count() / static_cast<double>(all);
    };
    qInfo().noquote() << QString("%1 rings at once, frames of one: least %2, middle %3, most %4; a frame of "
                                 "a ring, its coming and going included: program %5 us, server %6 us")
                             .arg(crowd.mostAtOnce)
                             .arg(crowd.frames.first())
                             .arg(crowd.frames.at(crowd.frames.size() / 2))
                             .arg(crowd.frames.last())
                             .arg(perFrame(crowd.ofProgram), 0, 'f', 1)
                             .arg(perFrame(crowd.ofServer), 0, 'f', 1);
}

} // namespace

class RingBurstScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void allRingsOfACrowdMove();
};

void RingBurstScenarios::allRingsOfACrowdMove()
{
    Crowds on;
    QVERIFY(on.turnOn());
    QVERIFY(on.session.pointer().moveTo({600, 400}));
    // How many frames there is time for depends on how busy the machine is, so several crowds are looked at.
    constexpr int kMostCrowds = 20;
    qsizetype moving = 0;
    for (int i = 0; moving < kManyClicks; ++i) {
        QVERIFY(i < kMostCrowds);
        const std::optional<Crowd> crowd = on.next();
        QVERIFY(crowd.has_value());
        print(*crowd);
        QVERIFY(*std::max_element(crowd->frames.begin(), crowd->frames.end()) <= kMostFrames);
        moving += crowd->moving();
    }
    EVENTUALLY(on.isUntouched({0, 0, 1700, 1080}));
}

REGISTER_GUILESS_TEST(RingBurstScenarios)
#include "ring_burst_scenarios.moc"
