#pragma once

#include "presenter.h"

namespace zeigewerk::rig {

/// Shows one feature after the other. Each step is verified on the screen and saved as a picture.
class Demonstration : private Presenter
{
public:
    using Presenter::Presenter;

    /// False as soon as a step does not show the expected result.
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
