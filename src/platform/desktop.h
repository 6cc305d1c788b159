#pragma once

#include "platform/event_monitor.h"
#include "platform/events.h"
#include "platform/geometry.h"
#include "platform/hot_keys.h"
#include "platform/surface.h"
#include "platform/widget_window.h"

#include <QMargins>
#include <QObject>

#include <memory>
#include <optional>
#include <vector>

class QWidget;

namespace zeigewerk::platform {

/// What some desktops cannot offer.
enum class Feature {
    FollowingPointer, ///< knowing where the pointer is, wherever it moves
    ClicksElsewhere,  ///< reporting presses of the left button over other applications
    WheelElsewhere,   ///< reporting steps of the wheel over other applications
};

/// The desktop that the program runs on: what the display server, its window manager and its compositor
/// do for us. All coordinates are points, global, y up.
class Desktop : public QObject
{
    Q_OBJECT

public:
    /// The screens, the primary first; empty while every output is off. Mirrored screens count as one.
    virtual std::vector<Screen> screens() const = 0;
    /// The screen that has the keyboard focus, else the primary one; none while every output is off.
    virtual std::optional<Screen> mainScreen() const = 0;
    /// The part of a screen's frame that docks leave free; the frame itself if they leave nothing.
    virtual QRectF visibleFrame(const Screen &screen) const = 0;

    /// Makes a hidden surface with that frame. An overlay's frame is that of a screen.
    virtual std::unique_ptr<Surface> makeSurface(SurfaceRole role, const QRectF &frame) = 0;
    /// Makes a hidden window of that widget, which has never been shown and outlives the window. The widget
    /// may be resized later. `ornament` is a margin around the frame, such as a shadow: it takes no clicks,
    /// and can be painted on where the desktop is composited. Sets the widget's window flags.
    virtual std::unique_ptr<WidgetWindow> makeWindow(WidgetRole role, QWidget &widget,
                                                     const QMargins &ornament) = 0;

    /// Why this desktop does not offer the feature: a German sentence for the user. Empty if it does.
    virtual QString limitation(Feature feature) const = 0;
    bool offers(Feature feature) const { return limitation(feature).isEmpty(); }

    /// Where the pointer is; none if that is unknown. While nothing follows the pointer, this may be the last
    /// known place.
    virtual std::optional<QPointF> mouseLocation() const = 0;
    /// Tells the desktop whether something follows the pointer from now on. Only while it does must
    /// `mouseLocation` be current at any time, so a desktop can ask another process for it only then. The
    /// same value again does nothing.
    virtual void setFollowsPointer(bool follows) = 0;

    /// Whether windows can be translucent. If not, what is beside a toolbar's rounded corners is cut off.
    virtual bool isComposited() const = 0;
    /// Whether the desktop shows tray icons itself, without the session bus.
    virtual bool showsTrayIcons() const = 0;
    virtual HotKeys &hotKeys() = 0;
    virtual EventMonitor &eventMonitor() = 0;

    /// Interaction begins: remembers which window has the keyboard, unless it is one of ours.
    virtual void activate() = 0;
    /// Interaction has ended: returns the keyboard to the window that had it, if that still exists and nobody
    /// else has taken the keyboard. Must be called while the surface that has the keyboard is still shown.
    virtual void deactivate() = 0;

Q_SIGNALS:
    /// Places, scales or the order of the screens changed; emitted once per change.
    void screensChanged();
    /// The answer of `limitation` has changed for some feature.
    void featuresChanged();
    /// The answer of `isComposited` has changed.
    void compositingChanged();
    /// The answer of `showsTrayIcons` has changed.
    void trayChanged();
};

} // namespace zeigewerk::platform
