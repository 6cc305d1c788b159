#include "floor.h"

namespace zeigewerk::bench {

Floor::Floor(rig::DesktopSession &session)
    : m_child({.program = QStringLiteral(BENCH_FLOOR_CLIENT),
               .environment = session.environment(),
               .separateOutput = true})
{
    constexpr int kTimeout = 5000;
    if (!m_child.process().waitForReadyRead(kTimeout))
        throw rig::RigError("the floor client does not start");
}

} // namespace zeigewerk::bench
