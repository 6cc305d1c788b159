#pragma once

#include "presenter.h"

namespace zeigewerk::rig {

/// Tells whether a mark is complete.
struct MarkExtent
{
    /// The minimum size of its ink's bounding rectangle.
    QSize minSize;
    /// A place that must contain ink.
    QRect end;
};

/// Draws one mark with each tool, and shows the toolbar, for pictures small enough to be placed in a text.
class SmallPictures : private Presenter
{
public:
    using Presenter::Presenter;

    /// False as soon as a picture does not show the expected content.
    bool make();

private:
    bool toolbarInBothLooks();
    bool showsToolbar(const char *file, const char *what, bool hasDarkLook);
    bool strokes();
    bool text();
    /// Waits until the complete mark is visible in that part, saves the picture, and clears the canvas.
    bool showsMark(const char *file, const char *what, const QRect &part, const QColor &ink,
                   const MarkExtent &extent);
};

} // namespace zeigewerk::rig
