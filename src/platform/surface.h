#pragma once

#include "platform/damage.h"
#include "platform/events.h"

#include <QRectF>

namespace zeigewerk::platform {

class PaintTarget;

/// What a surface is for; it determines its level.
enum class SurfaceRole {
    Overlay, ///< covers one screen; can take the mouse and the keyboard
    Effect,  ///< a small decoration above all our other windows; never takes a click
};

/// Paints a surface and receives its input.
class SurfaceContent
{
public:
    virtual ~SurfaceContent() = default;

    /// The last chance to report damage before the surface paints; always called before `draw`. It must not
    /// create or destroy a surface.
    virtual void willDisplay() {}
    /// Paints the part of the picture that lies in the target, which is transparent at first.
    virtual void draw(PaintTarget &target) = 0;

    virtual void mouseDown(const PointerEvent &) {}
    virtual void mouseDragged(const PointerEvent &) {}
    virtual void mouseUp(const PointerEvent &) {}
    virtual void scrollWheel(const ScrollEvent &) {}
    virtual void keyDown(const KeyEvent &) {}
};

/// A translucent rectangle on the desktop that we paint ourselves. It is created hidden, click-through and
/// fully transparent.
///
/// It collects damage, and paints the damage once per turn of the event loop. While ordered out it keeps no
/// picture: it comes back transparent, and its picture must be reported as damage again.
class Surface
{
public:
    virtual ~Surface() = default;

    /// `content` must outlive the surface or be replaced; with null, nothing is painted.
    virtual void setContent(SurfaceContent *content) = 0;

    /// Points, global coordinates, y up.
    virtual QRectF frame() const = 0;
    /// Moves the lower left corner. On a screen of another scale, the surface repaints itself at that scale.
    virtual void setFrameOrigin(QPointF origin) = 0;

    virtual bool isVisible() const = 0;
    /// Shows it in front of everything on its level, without giving it the keyboard.
    virtual void orderFrontRegardless() = 0;
    /// Hides it and frees its frame buffer.
    virtual void orderOut() = 0;

    /// Whether pointer events pass through to what lies beneath.
    virtual void setIgnoresMouseEvents(bool ignores) = 0;
    /// Gives it the keyboard. Does nothing while it is hidden.
    virtual void makeKey() = 0;

    /// Reports where the picture changed, in view coordinates. Empty damage only makes the surface call
    /// `willDisplay`. Ignored while hidden.
    virtual void setNeedsDisplay(const Damage &damage) = 0;
};

} // namespace zeigewerk::platform
