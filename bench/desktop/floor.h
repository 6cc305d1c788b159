// The floor: the minimum that any program has to do to put the same ink on the same screen.
#pragma once

#include "instruments.h"

namespace zeigewerk::bench {

/// A plain xcb client with one transparent window over the whole screen. For each motion with the button
/// pressed it fills the rectangle that the stroke's newest segment damages, and puts it through shared
/// memory.
class Floor
{
public:
    /// Waits until its window is on the screen. Throws RigError if it does not appear.
    explicit Floor(rig::DesktopSession &session);

    qint64 processId() const { return m_child.processId(); }

private:
    rig::ChildProcess m_child;
};

} // namespace zeigewerk::bench
