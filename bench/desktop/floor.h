// The floor: the least that a program can do to put the same ink on the same screen.
#pragma once

#include "instruments.h"

namespace zeigewerk::bench {

/// A client of nothing but xcb with one transparent window over the whole screen. For each motion with the
/// button held it fills the rectangle that a stroke's newest segment damages, and puts it with shared memory.
class Floor
{
public:
    /// Comes back when its window is on the screen. Throws RigError if it does not come.
    explicit Floor(rig::DesktopSession &session);

    qint64 processId() const { return m_child.processId(); }

private:
    rig::ChildProcess m_child;
};

} // namespace zeigewerk::bench
