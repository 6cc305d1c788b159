#include "ongoing_stroke.h"

namespace zeigewerk::bench {

OngoingStroke::OngoingStroke(rig::DesktopSession &session, qint64 programId)
    : m_session(session)
    , m_programId(programId)
    , m_hand(session.client())
    , m_path(wander(kScreen))
{
    m_hand.moveTo(m_path(0));
    m_hand.press();
}

void OngoingStroke::goOnTo(int samples)
{
    // As fast as the program follows without a queue.
    constexpr double kHurry = 2000.0;
    follow(samples - m_next, kHurry);
}

Costs OngoingStroke::nextCosts(int samples, double pace)
{
    follow(kWarmUp, pace);
    const Costs before = Costs::of(m_session, m_programId);
    follow(samples, pace);
    awaitRest(m_session, m_programId);
    return (Costs::of(m_session, m_programId) - before) * (1000.0 / samples);
}

void OngoingStroke::follow(int samples, double pace)
{
    m_hand.follow(m_path, m_next, samples, pace);
    m_next += samples;
}

} // namespace zeigewerk::bench
