#pragma once

#include "base/clock.h"
#include "base/repeating_timer.h"
#include "base/user_defaults.h"
#include "core/cursor_ring.h"
#include "core/overlay.h"
#include "drawing/color.h"
#include "drawing/shape.h"
#include "drawing/tool.h"
#include "platform/desktop.h"
#include "toolbar/toolbar.h"
#include "updater/bundle_info.h"

#include <QObject>
#include <QPointer>

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace zeigewerk {

class StatusItem;
class UpdaterController;

inline constexpr char kAutoFadeKey[] = "ZeigewerkAutoFade";
inline constexpr char kDarkUIKey[] = "ZeigewerkDarkUI";
inline constexpr char kSpotRadiusKey[] = "ZeigewerkSpotRadius";

/// The spotlight's initial radius, in points.
inline constexpr double kDefaultSpotRadius = 90.0;
/// The wheel keeps it between these.
inline constexpr double kSmallestSpotRadius = 35.0;
inline constexpr double kLargestSpotRadius = 400.0;

/// The controller. It owns the overlays, the hot keys, the timers and every mode flag for the whole run. Each
/// action changes flags and calls `refreshAll`, which derives from them what is on the screen.
///
/// It is declared here; each folder implements the operations that belong to its subject.
class AppDelegate : public QObject
{
    Q_OBJECT

public:
    /// Reads the settings, and creates no window. `desktop` and `defaults` must outlive the controller.
    AppDelegate(platform::Desktop &desktop, UserDefaults &defaults, Clock clock = &WallClock::now,
                BundleInfo info = {});
    ~AppDelegate() override;

    /// Launches the program: updater, overlays, toolbar, status item, click monitors, hot keys, and the
    /// signals of the desktop. Called once.
    void applicationDidFinishLaunching();

    // Modes: core/modes.cpp

    bool drawOn() const { return m_drawOn; }
    bool whiteboardOn() const { return m_whiteboardOn; }
    bool spotlightOn() const { return m_spotlightOn; }
    bool clicksOn() const { return m_clicksOn; }
    bool pinnedOn() const { return m_pinnedOn; }
    bool cursorRingOn() const { return m_cursorRingOn; }
    bool autoFadeOn() const { return m_autoFadeOn; }
    bool toolbarVisible() const { return m_toolbarVisible; }
    bool darkUI() const { return m_darkUI; }
    /// Whether the overlays take the pointer and the keyboard.
    bool interactionOn() const { return m_drawOn || m_whiteboardOn; }

    /// Turns drawing on or off. While pinned, unpins and resumes drawing.
    void toggleDraw();
    void toggleBoard();
    void toggleSpot();
    void toggleClicks();
    void toggleRing();
    /// While drawing or on the whiteboard, pins the drawing and ends both. While pinned, unpins and resumes
    /// drawing. Otherwise does nothing.
    void togglePin();
    /// Ends drawing, whiteboard, spotlight and pin.
    void escapePressed();
    void quit();
    /// Ends the modes that need a feature which the desktop no longer offers.
    void endUnavailableModes();

    // From the flags to the screen: core/refresh.cpp

    /// Nothing else shows, hides or activates the overlays, or discards drawings.
    void refreshAll();
    /// Whether the timer runs that moves the spotlight and the cursor ring with the pointer.
    bool isFollowing() const { return m_spotTimer != nullptr; }
    /// Moves the spotlight and the cursor ring to the pointer.
    void followPointer();

    // The next shape

    Tool tool() const { return m_tool; }
    Color color() const { return m_color; }
    double lineWidth() const { return m_lineWidth; }
    void setTool(Tool tool);
    void setColor(const Color &color);
    void setLineWidth(double width);
    /// The radius of the spotlight in points: anything above zero, including infinity.
    double spotRadius() const { return m_spotRadius; }
    /// Enlarges the spotlight by that many points, within its bounds, and saves the new radius.
    void adjustSpotRadius(double delta);

    TimePoint now() const { return m_clock(); }
    platform::Desktop &desktop() const { return m_desktop; }

    // Undo and clear, on all screens: drawing/history.cpp

    /// One overlay per screen, the primary first.
    const std::vector<std::unique_ptr<Overlay>> &overlays() const { return m_overlays; }
    /// The canvas of each finished shape, oldest first. Undo goes backwards through it.
    const std::vector<DrawingView *> &shapeOrder() const { return m_shapeOrder; }
    /// A shape was finished on that canvas.
    void noteShapeAdded(DrawingView &view);
    /// Removes the newest shape, on any screen, and skips those that have faded away. There is no redo.
    void undoShape();
    /// Clears every screen, including a shape in progress.
    void clearAll();

    // Drawings that dissolve: drawing/auto_fade.cpp

    void toggleFade();
    /// Starts or stops the fade timer, which runs only while there is something to fade.
    void updateFadeTimer();
    bool isFadeTimerRunning() const { return m_fadeTimer != nullptr; }
    /// Removes the shapes that have dissolved, and repaints those that are dissolving.
    void tickFade();

    // Hot keys: commands/hot_keys.cpp

    /// Performs the operation of a hot key. An unknown number does nothing.
    void hotKey(std::uint32_t number);

    // Status menu: commands/status_menu.cpp

    /// The tray icon and its menu; null before launch.
    StatusItem *statusItem() const { return m_statusItem.get(); }
    /// Updates the menu to the current state.
    void rebuildMenu();
    /// Opens the menu at the pointer.
    void openStatusMenu();

    // Updates: updater/updater_controller.cpp

    /// Whether the installation names an update feed. False before launch.
    bool hasUpdater() const;
    void checkForUpdates();

    // Toolbar: toolbar/

    /// The stroke widths offered, in points.
    static constexpr std::array widths = {3.0, 5.0, 9.0};
    /// The toolbar's window and buttons; null before launch.
    const Toolbar *toolbar() const { return m_toolbar.get(); }
    /// Updates the toolbar's buttons to the current state.
    void refreshToolbar();
    /// A tool's button was clicked: selects the tool, and starts drawing if the canvases do not take the
    /// pointer. A tag that is no tool does nothing.
    void pickTool(int tag);
    /// A swatch was clicked. The tag must be an index of `kPalette`.
    void pickColor(int tag);
    /// A width button was clicked. The tag must be an index of `widths`.
    void pickWidth(int tag);
    void toggleDarkUI();
    /// Shows or hides the toolbar. It keeps its place.
    void toggleToolbar();

private:
    void buildOverlays();
    void discardDrawings();
    void showOverlays(bool interactive, bool visible);
    /// The first overlay if the pointer is on none or its place is unknown; null without overlays.
    Overlay *overlayUnderPointer() const;
    void raiseToolbar();
    void updateFollowTimer();
    void updateCursorRing();
    void installClickMonitors();
    void updateEventMonitor();
    void invert(bool &flag);
    void invertIfOffered(bool &flag, platform::Feature feature);
    void registerHotKeys();
    void updateEscHotKey();
    void buildPanel();
    void makeModeButtons();
    void makeToolButtons();
    void makeColorButtons();
    void makeWidthButtons();
    void makeMiscButtons();
    void layOutPanel();
    void placePanel();
    void connectPanel();
    /// A button with a symbol, or "?" if the symbol is missing. `action` may be null.
    PalButton *makeButton(const QString &symbol, const QString &tip, void (AppDelegate::*action)(),
                          QSize size);
    /// Paints a mode's button, orange if the mode is on.
    void setSelected(PalButton *button, bool on);

    platform::Desktop &m_desktop;
    UserDefaults &m_defaults;
    Clock m_clock;
    BundleInfo m_info;

    std::unique_ptr<UpdaterController> m_updaterController;
    std::vector<std::unique_ptr<Overlay>> m_overlays;
    std::unique_ptr<Toolbar> m_toolbar;
    std::unique_ptr<StatusItem> m_statusItem;
    Tool m_tool = Tool::pen;
    Color m_color = kOrange;
    double m_lineWidth = 5.0;
    bool m_drawOn = false;
    bool m_whiteboardOn = false;
    bool m_spotlightOn = false;
    bool m_clicksOn = false;
    bool m_pinnedOn = false;
    bool m_cursorRingOn = false;
    bool m_autoFadeOn;
    bool m_toolbarVisible = true;
    bool m_darkUI;
    double m_spotRadius;
    /// Exists only while the spotlight or the cursor ring is on.
    std::unique_ptr<RepeatingTimer> m_spotTimer;
    /// Exists only while a shape may fade.
    std::unique_ptr<RepeatingTimer> m_fadeTimer;
    std::unique_ptr<CursorRing> m_ringWindow;
    std::vector<DrawingView *> m_shapeOrder;
    /// In the order of the table.
    std::vector<std::unique_ptr<platform::HotKeyRegistration>> m_hotKeyRefs;
    /// Esc, registered only while the spotlight is on.
    std::unique_ptr<platform::HotKeyRegistration> m_escHotKeyRef;
};

/// The controller of the running program, for callbacks without an object.
extern QPointer<AppDelegate> gApp;

} // namespace zeigewerk
