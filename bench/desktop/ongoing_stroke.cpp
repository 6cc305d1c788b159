#include "ongoing_stroke.h"

namespace zeigewerk::bench {

OngoingStroke::OngoingStroke(rig::DesktopSession &session, qint64 programId)
    : m_session(session)
    , m_programId(programId)
    , m_mouse(session.client())
    , m_path(penPath(kScreen))
{
    m_mouse.moveTo(m_path(0));
    m_mouse.press();
}

void OngoingStroke::continueTo(int samples)
{
    // The fastest rate that the program follows without a queue.
    constexpr double kFastRate = 2000.0;
    follow(samples - m_next, kFastRate);
}

Costs OngoingStroke::nextCosts(int samples, double rate)
{
    follow(kWarmUp, rate);
    const Costs before = Costs::of(m_session, m_programId);
    follow(samples, rate);
    awaitIdle(m_session, m_programId);
    return (Costs::of(m_session, m_programId) - before) * (1000.0 / samples);
}

void OngoingStroke::follow(int samples, double rate)
{
    m_mouse.follow(m_path, m_next, samples, rate);
    m_next += samples;
}

} // namespace zeigewerk::bench
