// What the samples of a stroke cost.
#pragma once

#include "instruments.h"

namespace zeigewerk::bench {

/// What is compared is measured in so many turns, since what else a machine does makes one minute dearer than
/// the next; their median counts.
inline constexpr int kRounds = 5;

/// A stroke that wanders all over the screen, on and on.
class OngoingStroke
{
public:
    /// In the others' turns a program's memory leaves the processor's caches. To fetch it again is what a
    /// stroke costs at its beginning and not at each sample, so these samples of each turn do not count.
    static constexpr int kWarmUp = 50;

    /// Begins it, on a desktop where that process draws. The session must outlive the stroke.
    OngoingStroke(rig::DesktopSession &session, qint64 programId);
    OngoingStroke(const OngoingStroke &) = delete;
    OngoingStroke &operator=(const OngoingStroke &) = delete;
    ~OngoingStroke() { m_mouse.release(); }

    /// In a hurry, until it has so many samples.
    void continueTo(int samples);
    /// What 1,000 samples cost at that many a second, reckoned from `samples` of them after the warm-up.
    Costs nextCosts(int samples, double rate);

private:
    void follow(int samples, double rate);

    rig::DesktopSession &m_session;
    qint64 m_programId;
    Mouse m_mouse;
    Path m_path;
    int m_next = 1;
};

} // namespace zeigewerk::bench
