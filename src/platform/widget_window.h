#pragma once

#include <QRectF>

namespace zeigewerk::platform {

/// What one of our few Qt windows is for; it determines its level.
enum class WidgetRole {
    TextField, ///< lies over its overlay; can take the mouse and the keyboard
    Toolbar,   ///< takes the mouse, never the keyboard
    Dialog,    ///< like a toolbar, on the same level
};

/// A top-level Qt widget that the desktop places among the surfaces. No window manager moves or decorates it,
/// and showing or clicking it never moves the keyboard focus. Show, hide and move it through this class only.
class WidgetWindow
{
public:
    virtual ~WidgetWindow() = default;

    /// The widget without its ornament: points, global coordinates, y up.
    virtual QRectF frame() const = 0;
    /// Moves the lower left corner of the frame to the nearest whole point.
    virtual void setFrameOrigin(QPointF origin) = 0;
    /// Places a text field, once, before it is shown: on the screen with that frame and at that screen's
    /// scale, to the nearest pixel. It may stick out of the screen.
    virtual void setFrameOriginOn(const QRectF &screenFrame, QPointF origin) = 0;
    /// Moves the frame so that `grip`, the point by which the pointer drags the widget, is under the pointer
    /// again. `position` is the pointer's position in the current event. Both are points from the lower left
    /// corner of the frame, y up.
    virtual void drag(QPointF grip, QPointF position) = 0;

    virtual bool isVisible() const = 0;
    /// Shows it in front of everything on its level.
    virtual void orderFrontRegardless() = 0;
    virtual void orderOut() = 0;

    /// Whether pointer events pass through to what lies beneath; initially they do not.
    virtual void setIgnoresMouseEvents(bool ignores) = 0;
    /// Gives it the keyboard. Does nothing while it is hidden, or if its role never takes the keyboard.
    virtual void makeKey() = 0;
    /// Whether, of our windows, this one has the keyboard.
    virtual bool isKey() const = 0;
};

} // namespace zeigewerk::platform
