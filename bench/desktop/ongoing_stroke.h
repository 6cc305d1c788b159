// What the samples of a stroke cost.
#pragma once

#include "stage.h"

namespace zeigewerk::bench {

/// What is compared is measured in so many turns, since what else a machine does makes one minute dearer than
/// the next; their median counts.
inline constexpr int kTurns = 5;

/// A stroke that wanders all over the screen, on and on.
class OngoingStroke
{
public:
    /// Begins it, on a desktop where that process draws. The session must outlive the stroke.
    OngoingStroke(rig::DesktopSession &session, qint64 programId);
    OngoingStroke(const OngoingStroke &) = delete;
    OngoingStroke &operator=(const OngoingStroke &) = delete;
    ~OngoingStroke() { m_hand.release(); }

    /// In a hurry, until it has so many samples.
    void goOnTo(int samples);
    /// What 1,000 samples cost, reckoned from `samples` of them after a few more; so many come in a second.
    Costs nextCosts(int samples, double pace);

private:
    void follow(int samples, double pace);

    rig::DesktopSession &m_session;
    qint64 m_programId;
    Hand m_hand;
    Path m_path;
    int m_next = 1;
};

} // namespace zeigewerk::bench
