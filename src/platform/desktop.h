#pragma once

#include "platform/event_monitor.h"
#include "platform/events.h"
#include "platform/geometry.h"
#include "platform/surface.h"
#include "platform/widget_window.h"

#include <QMargins>
#include <QObject>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QWidget;

namespace zeigewerk::platform {

/// Tells one hot key from another: a four-character code of the program, and a number.
struct HotKeyId
{
    std::uint32_t signature = 0;
    std::uint32_t number = 0;

    friend bool operator==(const HotKeyId &, const HotKeyId &) = default;
};

/// A registered hot key; destroying it gives the combination back to the other applications.
class HotKey
{
public:
    virtual ~HotKey() = default;
};

/// System-wide hot keys.
class HotKeys
{
public:
    virtual ~HotKeys() = default;

    /// Takes the combination, whatever NumLock and CapsLock say. Returns none when another program has it;
    /// trying again later can succeed.
    virtual std::unique_ptr<HotKey> registerHotKey(PhysicalKey key, Modifiers modifiers, HotKeyId id) = 0;
    /// Called for each press of a registered combination, once however long it is held, from the event loop
    /// and never from within another call.
    virtual void setHandler(std::function<void(HotKeyId)> handler) = 0;
};

/// The desktop that the program runs on: what the display server, its window manager and its compositor
/// do for us. All coordinates are points, global, y up.
class Desktop : public QObject
{
    Q_OBJECT

public:
    /// The screens, the primary first; empty while every output is off. Mirrored screens are one.
    virtual std::vector<Screen> screens() const = 0;
    /// A hidden surface over that frame. An overlay's frame is that of a screen.
    virtual std::unique_ptr<Surface> makeSurface(SurfaceRole role, const QRectF &frame) = 0;

    /// Makes a hidden window of that widget, which has never been shown and outlives the window. It may be
    /// resized later. `ornament` are margins of the widget around its frame that take no clicks and may be
    /// painted on where the desktop is composited: a shadow. Sets the widget's window flags.
    virtual std::unique_ptr<WidgetWindow> makeWindow(WidgetRole role, QWidget &widget,
                                                     const QMargins &ornament) = 0;

    /// The screen that has the keyboard focus, else the primary one; none while every output is off.
    virtual std::optional<Screen> mainScreen() const = 0;
    /// The part of a screen's frame that the desktop's docks leave free; empty if they leave none.
    virtual QRectF visibleFrame(const Screen &screen) const = 0;

    virtual QPointF mouseLocation() const = 0;
    /// Whether windows can be translucent; where not, what shows beside a toolbar's rounded corners is cut
    /// off.
    virtual bool isComposited() const = 0;
    /// Whether there is a tray of the older kind, in which programs embed a window of theirs.
    virtual bool hasEmbeddingTray() const = 0;
    virtual HotKeys &hotKeys() = 0;
    virtual EventMonitor &eventMonitor() = 0;

    /// Interaction begins: remembers which window has the keyboard, unless it is one of ours already.
    virtual void activate() = 0;
    /// Interaction has ended: hands the keyboard back to the window that had it, if it still lives and the
    /// keyboard is still ours to give. Call it while the surface that has the keyboard is still shown.
    virtual void deactivate() = 0;

Q_SIGNALS:
    /// Places, scales or the order of the screens changed; once per change.
    void screensChanged();
    /// `isComposited` has another answer.
    void compositingChanged();
    /// `hasEmbeddingTray` has another answer.
    void embeddingTrayChanged();
};

} // namespace zeigewerk::platform
