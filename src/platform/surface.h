#pragma once

#include "platform/damage.h"
#include "platform/events.h"

#include <QRectF>

namespace zeigewerk::platform {

class PaintTarget;

/// What a surface is for; it decides the level at which it stands.
enum class SurfaceRole {
    Overlay, ///< covers one screen, takes the mouse and the keyboard when it is told to
    Effect,  ///< a small ornament above everything else of ours that never takes a click
};

/// What a surface shows and who listens to it. The surface calls, its content answers.
class SurfaceContent
{
public:
    virtual ~SurfaceContent() = default;

    /// The last moment to report damage before the surface paints what has been reported; always called
    /// before `draw`. It must not make or drop a surface.
    virtual void willDisplay() {}
    /// Paints what of the picture lies in that part of the surface; it is transparent before.
    virtual void draw(PaintTarget &target) = 0;

    virtual void mouseDown(const PointerEvent &) {}
    virtual void mouseDragged(const PointerEvent &) {}
    virtual void mouseUp(const PointerEvent &) {}
    virtual void scrollWheel(const ScrollEvent &) {}
    virtual void keyDown(const KeyEvent &) {}
};

/// A translucent rectangle of the desktop that we paint ourselves. Created hidden, click-through and fully
/// transparent.
///
/// Damage is collected; the surface paints once per turn of the event loop, and only what was damaged. While
/// it is ordered out it keeps no picture: it comes back transparent, and whoever orders it front reports what
/// is to be seen.
class Surface
{
public:
    virtual ~Surface() = default;

    /// `content` must outlive the surface or be replaced; none paints nothing.
    virtual void setContent(SurfaceContent *content) = 0;

    /// Where the surface lies: points, global coordinates, y up.
    virtual QRectF frame() const = 0;
    /// Moves the lower left corner there. A surface that comes to lie on a screen of another scale paints
    /// itself again at that scale.
    virtual void setFrameOrigin(QPointF origin) = 0;

    virtual bool isVisible() const = 0;
    /// Shows it in front of everything of its level, without giving it the keyboard.
    virtual void orderFrontRegardless() = 0;
    /// Hides it and gives its frame buffer back.
    virtual void orderOut() = 0;

    /// Whether pointer events pass through to whatever lies beneath.
    virtual void setIgnoresMouseEvents(bool ignores) = 0;
    /// Gives it the keyboard. Nothing happens while it is hidden.
    virtual void makeKey() = 0;

    /// Reports that the picture changed there (view coordinates). Empty damage only has the content asked
    /// by `willDisplay`. Ignored while hidden.
    virtual void setNeedsDisplay(const Damage &damage) = 0;
};

} // namespace zeigewerk::platform
