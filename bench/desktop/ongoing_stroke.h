// The cost of a stroke's samples.
#pragma once

#include "instruments.h"

namespace zeigewerk::bench {

/// Measurements that are compared alternate over this many rounds, and the median counts: other load on a
/// machine makes one minute slower than the next.
inline constexpr int kRounds = 5;

/// A stroke all over the screen that never ends.
class OngoingStroke
{
public:
    /// While others are measured, a program's memory drops out of the processor's caches. Loading it again is
    /// a cost of a stroke's beginning rather than of each sample, so the first samples of a round do not
    /// count.
    static constexpr int kWarmUp = 50;

    /// Begins the stroke, on the desktop on which that process draws. The session must outlive the stroke.
    OngoingStroke(rig::DesktopSession &session, qint64 programId);
    OngoingStroke(const OngoingStroke &) = delete;
    OngoingStroke &operator=(const OngoingStroke &) = delete;
    ~OngoingStroke() { m_mouse.release(); }

    /// Continues quickly until the stroke has that many samples.
    void continueTo(int samples);
    /// The costs of 1,000 samples at that rate per second, extrapolated from `samples` of them after the
    /// warm-up.
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
