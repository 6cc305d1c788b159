#pragma once

#include "platform/desktop.h"
#include "platform/x11/connection.h"
#include "platform/x11/input/held_keys.h"
#include "platform/x11/input/keymap.h"
#include "platform/x11/input/scrolling.h"
#include "platform/x11/input/typed_keys.h"
#include "platform/x11/input/x11_event_monitor.h"
#include "platform/x11/input/x11_hot_keys.h"
#include "platform/x11/lost_display.h"
#include "platform/x11/screens.h"
#include "platform/x11/selection_owner.h"
#include "platform/x11/windows/focus.h"
#include "platform/x11/windows/popup_grabs.h"
#include "platform/x11/windows/redraw_reminder.h"
#include "platform/x11/windows/stacking.h"
#include "platform/x11/windows/surface_list.h"
#include "platform/x11/windows/window_list.h"
#include "platform/x11/windows/window_services.h"

#include <xcb/xinput.h>

namespace zeigewerk::platform::x11 {

class X11Surface;

/// The desktop of an X server. It dispatches the events of our connection, and makes the surfaces paint once
/// per turn of the event loop.
class X11Desktop : public Desktop
{
    Q_OBJECT

public:
    /// Needs the application object, on the same display.
    explicit X11Desktop(std::unique_ptr<Connection> connection);
    ~X11Desktop() override;

    std::vector<Screen> screens() const override { return layout().screens(); }
    std::unique_ptr<Surface> makeSurface(SurfaceRole role, const QRectF &frame) override;
    std::unique_ptr<WidgetWindow> makeWindow(WidgetRole role, QWidget &widget,
                                             const QMargins &ornament) override;
    std::optional<Screen> mainScreen() const override;
    QRectF visibleFrame(const Screen &screen) const override;
    /// X11 offers everything.
    QString limitation(Feature) const override { return {}; }
    std::optional<QPointF> mouseLocation() const override;
    /// The server is asked each time.
    void setFollowsPointer(bool) override {}
    bool isComposited() const override { return m_compositor.exists(); }
    bool showsTrayIcons() const override { return m_embeddingTray.exists(); }
    HotKeys &hotKeys() override { return m_hotKeys; }
    EventMonitor &eventMonitor() override { return m_eventMonitor; }
    void activate() override { m_focus.borrow(); }
    void deactivate() override
    {
        m_focus.handBack();
        m_typedKeys.keyboardGoes();
    }

private:
    const ScreenLayout &layout() const { return m_screens.layout(); }
    void handle(const xcb_generic_event_t &event);
    void handleInput(const xcb_ge_generic_event_t &event);
    void buttonPressed(const xcb_input_button_press_event_t &event, X11Surface &surface);
    void handlePress(const xcb_input_button_press_event_t &press);
    void handleTyped(xcb_window_t canvas, const xcb_key_press_event_t &key);
    void handleKey(const xcb_key_press_event_t &event, bool isPress);
    void pressKey(X11Surface &surface, const xcb_key_press_event_t &key);
    void selectionChanged(const xcb_xfixes_selection_notify_event_t &event);
    void notifyCompositingChanged();

    std::unique_ptr<Connection> m_connection;
    LostDisplay m_lostDisplay;
    Screens m_screens;
    Focus m_focus;
    Keymap m_keymap;
    HeldKeys m_heldKeys;
    SelectionOwner m_compositor;
    SelectionOwner m_embeddingTray;
    SurfaceList m_surfaces;
    WindowList m_windowList;
    Stacking m_stacking;
    RedrawReminder m_redrawReminder;
    X11HotKeys m_hotKeys;
    Scrolling m_scrolling;
    TypedKeys m_typedKeys;
    X11EventMonitor m_eventMonitor;
    PopupGrabs m_popupGrabs;
    /// Refers to the members above.
    WindowServices m_windowServices;
};

} // namespace zeigewerk::platform::x11
