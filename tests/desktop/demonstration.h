#pragma once

#include "presenter.h"

namespace zeigewerk::rig {

/// Shows one feature after the other. Each step is looked for on the screen, and leaves a picture.
class Demonstration : private Presenter
{
public:
    using Presenter::Presenter;

    /// False as soon as a step does not show what it should.
    bool play();

private:
    bool showToolbar();
    bool everyTool();
    bool undo();
    bool text();
    bool freehand();
    bool pin();
    bool clickRing();
    bool isRingShown();
    bool spotlight();
    bool whiteboard();
    bool menu();
};

} // namespace zeigewerk::rig
