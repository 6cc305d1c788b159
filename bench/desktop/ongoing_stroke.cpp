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
    m_hand.follow(m_path, m_next, samples - m_next, kHurry);
    m_next = samples;
}

Costs OngoingStroke::nextCosts(int samples, double pace)
{
    const Costs costs =
        costsOf(m_session, m_programId, [&] { m_hand.follow(m_path, m_next, samples, pace); });
    m_next += samples;
    return costs * (1000.0 / samples);
}

} // namespace zeigewerk::bench
