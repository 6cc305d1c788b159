#pragma once

#include <QRectF>

namespace zeigewerk::platform {

/// What one of our few Qt windows is for; it decides the level at which it stands.
enum class WidgetRole {
    TextField, ///< lies over its overlay, takes the mouse and the keyboard when it is told to
    Toolbar,   ///< takes the mouse, never the keyboard
    Dialog,    ///< the same, at the toolbar's level
};

/// A top-level Qt widget as the desktop places it among the surfaces: no window manager moves or decorates
/// it, and showing or clicking it never moves the keyboard. It is shown and moved through this class alone.
class WidgetWindow
{
public:
    virtual ~WidgetWindow() = default;

    /// Where the widget lies without its ornament: points, global coordinates, y up.
    virtual QRectF frame() const = 0;
    /// Moves the lower left corner of the frame to the nearest whole point.
    virtual void setFrameOrigin(QPointF origin) = 0;
    /// For a text field, once, before it is shown: moves that corner to the nearest pixel of the screen with
    /// that frame, whose scale the window then has. It may stick out of the screen; but where its middle
    /// would lie outside and a screen of another scale begins, its widget is cut at the edge.
    virtual void setFrameOriginOn(const QRectF &screenFrame, QPointF origin) = 0;

    virtual bool isVisible() const = 0;
    /// Shows it in front of everything of its level.
    virtual void orderFrontRegardless() = 0;
    virtual void orderOut() = 0;

    /// Whether pointer events pass through to whatever lies beneath; at first they do not.
    virtual void setIgnoresMouseEvents(bool ignores) = 0;
    /// Gives it the keyboard. Nothing happens while it is hidden, nor to one that never takes it.
    virtual void makeKey() = 0;
    /// Whether it is the one of our windows that has the keyboard.
    virtual bool isKey() const = 0;
};

} // namespace zeigewerk::platform
