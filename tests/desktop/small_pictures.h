#pragma once

#include "presenter.h"

namespace zeigewerk::rig {

/// By what a mark is seen to be whole.
struct MarkExtent
{
    /// Its ink spans at least that.
    QSize minSize;
    /// There is some of it here.
    QRect end;
};

/// Draws one mark with each tool, and shows the toolbar, for pictures small enough to stand beside a text.
class SmallPictures : private Presenter
{
public:
    using Presenter::Presenter;

    /// False as soon as a picture does not show what it should.
    bool make();

private:
    bool toolbarInBothLooks();
    bool showsToolbar(const char *file, const char *what, bool hasDarkLook);
    bool strokes();
    bool text();
    /// Waits until all of a mark of that ink is seen in that part; then wipes it.
    bool showsMark(const char *file, const char *what, const QRect &part, const QColor &ink,
                   const MarkExtent &extent);
};

} // namespace zeigewerk::rig
