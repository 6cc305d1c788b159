#pragma once

#include "presentation.h"
#include "toolbar_user.h"

namespace zeigewerk::rig {

/// A presentation whose presenter works with the toolbar.
class ToolbarPresentation : public Presentation
{
public:
    /// Free of the toolbar at its first place, and of its shadow.
    static constexpr QRect kLeftOfToolbar = QRect(0, 0, 1700, 1080);

    ToolbarPresentation()
        : Presentation({.accessibility = true})
        , presenter(session, program)
    {
        if (!eventually([&] { return pixel(presenter.background()) != beneathColor(); }))
            throw RigError("the toolbar is not painted");
    }

    /// A horizontal drag of a hundred pixels that begins there.
    bool strokeFrom(QPoint place) { return session.pointer().drag({place, place + QPoint(100, 0)}); }
    /// What such a drag has left in its middle.
    QColor strokeColor(QPoint place) { return pixel(place + QPoint(50, 0)); }
    bool isSlideUntouched() { return isUntouched(kLeftOfToolbar); }

    ToolbarUser presenter;
};

} // namespace zeigewerk::rig
