#pragma once

#include "presentation.h"
#include "toolbar_user.h"

namespace zeigewerk::rig {

/// A presentation that is controlled with the toolbar.
class ToolbarPresentation : public Presentation
{
public:
    /// Free of the toolbar and its shadow at the default place.
    static constexpr QRect kLeftOfToolbar = QRect(0, 0, 1700, 1080);

    ToolbarPresentation()
        : Presentation({.accessibility = true})
        , presenter(session, program)
    {
        if (!eventually([&] { return pixel(presenter.background()) != beneathColor(); }))
            throw RigError("the toolbar is not painted");
    }

    /// A horizontal drag of a hundred pixels from that place.
    bool strokeFrom(QPoint place) { return session.pointer().drag({place, place + QPoint(100, 0)}); }
    /// The colour in the middle of that stroke.
    QColor strokeColor(QPoint place) { return pixel(place + QPoint(50, 0)); }
    bool isSlideUntouched() { return isUntouched(kLeftOfToolbar); }

    ToolbarUser presenter;
};

} // namespace zeigewerk::rig
