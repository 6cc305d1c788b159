#pragma once

#include "base/clock.h"
#include "core/cursor_ring.h"
#include "core/overlay.h"
#include "core/repeating_timer.h"
#include "core/user_defaults.h"
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

/// The spotlight's radius in points until the user chooses another.
inline constexpr double kDefaultSpotRadius = 90.0;
/// Between these the wheel changes it.
inline constexpr double kSmallestSpotRadius = 35.0;
inline constexpr double kLargestSpotRadius = 400.0;

/// The controller: it owns the overlays, the hot keys, the timers and every mode flag for the whole run.
/// Each action changes flags and calls `refreshAll`, which turns the flags into what is on the screen.
///
/// Declared once, here; each subsystem implements its operations in its own folder.
class AppDelegate : public QObject
{
    Q_OBJECT

public:
    /// Reads the settings; creates no window. `desktop` and `defaults` must outlive the controller.
    AppDelegate(platform::Desktop &desktop, UserDefaults &defaults, Clock clock = &WallClock::now,
                BundleInfo info = {});
    ~AppDelegate() override;

    /// The launch sequence: updater, overlays, toolbar, status item, click monitors, hot keys, the watch over
    /// the screens. Called once.
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

    /// Turns drawing on or off; while pinned it ends the pin and resumes drawing.
    void toggleDraw();
    void toggleBoard();
    void toggleSpot();
    void toggleClicks();
    void toggleRing();
    /// Pins what is drawn and ends drawing and whiteboard, or unpins and resumes drawing. Without either it
    /// changes nothing.
    void togglePin();
    /// Ends drawing, whiteboard, spotlight and pin together.
    void escapePressed();
    void quit();
    /// Ends the modes for which the desktop no longer offers what they need.
    void endUnavailableModes();

    // Turning the flags into what is on the screen: core/refresh.cpp

    /// The only place that shows, hides and activates the overlays and discards drawings.
    void refreshAll();
    /// Whether the timer runs that has the spotlight and the cursor ring follow the pointer.
    bool isFollowing() const { return m_spotTimer != nullptr; }
    /// One step of what follows the pointer: the spotlight's hole and the cursor ring.
    void followPointer();

    // What is drawn next

    Tool tool() const { return m_tool; }
    Color color() const { return m_color; }
    double lineWidth() const { return m_lineWidth; }
    void setTool(Tool tool);
    void setColor(const Color &color);
    void setLineWidth(double width);
    /// Radius of the spotlight's hole in points: anything above zero, infinity included.
    double spotRadius() const { return m_spotRadius; }
    /// Makes the spotlight larger by that many points, within its bounds, and keeps the new radius for the
    /// next start.
    void adjustSpotRadius(double delta);

    TimePoint now() const { return m_clock(); }
    platform::Desktop &desktop() const { return m_desktop; }

    // Drawings across the screens: drawing/history.cpp

    /// One overlay per screen, the primary first.
    const std::vector<std::unique_ptr<Overlay>> &overlays() const { return m_overlays; }
    /// The canvas of each finished shape, oldest first: the order in which shapes are taken back.
    const std::vector<DrawingView *> &shapeOrder() const { return m_shapeOrder; }
    /// A shape was finished on that canvas.
    void noteShapeAdded(DrawingView &view);
    /// Takes back the newest shape on whichever screen it is; those that have faded away are skipped. There
    /// is no redo.
    void undoShape();
    /// Wipes every screen; a drag in progress is dropped.
    void clearAll();

    // Drawings that dissolve: drawing/auto_fade.cpp

    void toggleFade();
    /// Has the fade timer run exactly while there is something to fade.
    void updateFadeTimer();
    bool isFadeTimerRunning() const { return m_fadeTimer != nullptr; }
    /// One step of fading: removes what has dissolved and has the canvases paint what is dissolving.
    void tickFade();

    // Hot keys: commands/hot_keys.cpp

    /// The action of a global hot key; an unknown number does nothing.
    void hotKey(std::uint32_t number);

    // Status menu: commands/status_menu.cpp

    /// The item in the tray with its menu; null before launch.
    StatusItem *statusItem() const { return m_statusItem.get(); }
    /// Has the menu show the state as it is now.
    void rebuildMenu();
    /// Opens the menu at the pointer.
    void openStatusMenu();

    // Updates: updater/updater_controller.cpp

    /// Whether the installation names an update feed; only then, after launch, there is anything to check.
    bool hasUpdater() const;
    void checkForUpdates();

    // Toolbar: toolbar/

    /// The stroke widths offered, in points.
    static constexpr std::array widths = {3.0, 5.0, 9.0};
    /// The toolbar's window and buttons; null before launch.
    const Toolbar *toolbar() const { return m_toolbar.get(); }
    /// Paints the state as it is now on the toolbar's buttons.
    void refreshToolbar();
    /// A tool's button was clicked: chooses the tool, and goes to drawing where nothing is drawn on yet. A
    /// tag that is no tool does nothing.
    void pickTool(int tag);
    /// A swatch was clicked; the tag must be an index of `kPalette`.
    void pickColor(int tag);
    /// A width button was clicked; the tag must be an index of `widths`.
    void pickWidth(int tag);
    void toggleDarkUI();
    /// Shows or hides the toolbar, which keeps its place.
    void toggleToolbar();

private:
    void buildOverlays();
    void discardDrawings();
    void showOverlays(bool interactive, bool visible);
    /// The first one where the pointer is on none, or its place unknown; null without overlays.
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
    /// A button that shows a symbol, "?" where it is missing; `action` may be none.
    PalButton *makeButton(const QString &symbol, const QString &tip, void (AppDelegate::*action)(),
                          QSize size);
    /// A mode's button: orange when the mode is on.
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
    /// There only while the spotlight or the cursor ring is on.
    std::unique_ptr<RepeatingTimer> m_spotTimer;
    /// There only while a shape may fade.
    std::unique_ptr<RepeatingTimer> m_fadeTimer;
    std::unique_ptr<CursorRing> m_ringWindow;
    std::vector<DrawingView *> m_shapeOrder;
    /// In the order of the table.
    std::vector<std::unique_ptr<platform::HotKeyRegistration>> m_hotKeyRefs;
    /// Esc, registered only while the spotlight is on.
    std::unique_ptr<platform::HotKeyRegistration> m_escHotKeyRef;
};

/// The controller of the running program, for callbacks that are given no object.
extern QPointer<AppDelegate> gApp;

} // namespace zeigewerk
