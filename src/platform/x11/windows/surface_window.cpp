#include "platform/x11/windows/surface_window.h"

#include "platform/x11/input/event_mask.h"
#include "platform/x11/properties.h"

#include <unistd.h>

#include <array>
#include <string_view>

namespace zeigewerk::platform::x11 {

namespace {

void setText(Connection &connection, xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
             std::string_view text)
{
    xcb_change_property(connection.xcb(), XCB_PROP_MODE_REPLACE, window, property, type, 8,
                        static_cast<std::uint32_t>(text.size()), text.data());
}

/// Sets what window managers, compositors and window lists read.
void describe(Connection &connection, xcb_window_t window, SurfaceRole role)
{
    using namespace std::string_view_literals;
    setText(connection, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, "zeigewerk\0Zeigewerk\0"sv);
    setText(connection, window, connection.atom("_NET_WM_NAME"), connection.atom("UTF8_STRING"),
            role == SurfaceRole::Overlay ? "Zeigewerk overlay" : "Zeigewerk effect");
    setNumbers(connection, window, "_NET_WM_PID", XCB_ATOM_CARDINAL, {static_cast<std::uint32_t>(getpid())});
    // Otherwise compositors may draw a shadow, or stop compositing for a full-screen window beneath.
    refuseShadow(connection, window);
    constexpr std::uint32_t kNever = 2;
    setNumbers(connection, window, "_NET_WM_BYPASS_COMPOSITOR", XCB_ATOM_CARDINAL, {kNever});
}

void selectPointer(Connection &connection, xcb_window_t window)
{
    selectInputEvents(connection, window, XCB_INPUT_DEVICE_ALL_MASTER,
                      XCB_INPUT_XI_EVENT_MASK_BUTTON_PRESS | XCB_INPUT_XI_EVENT_MASK_BUTTON_RELEASE |
                          XCB_INPUT_XI_EVENT_MASK_MOTION | XCB_INPUT_XI_EVENT_MASK_ENTER);
}

} // namespace

xcb_window_t createSurfaceWindow(Connection &connection, SurfaceRole role, const QRect &nativeFrame)
{
    const xcb_window_t window = xcb_generate_id(connection.xcb());
    constexpr std::uint32_t kTransparent = 0;
    constexpr std::uint32_t kBorder = 0; // required because the depth differs from the parent's
    constexpr std::uint32_t kOverrideRedirect = 1;
    const std::uint32_t mask = XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_OVERRIDE_REDIRECT |
                               XCB_CW_EVENT_MASK | XCB_CW_COLORMAP | XCB_CW_CURSOR;
    const std::array<std::uint32_t, 6> values = {
        kTransparent,
        kBorder,
        kOverrideRedirect,
        XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE |
            XCB_EVENT_MASK_FOCUS_CHANGE | XCB_EVENT_MASK_KEYMAP_STATE,
        connection.argbColormap(),
        connection.arrowCursor()};
    xcb_create_window(connection.xcb(), Connection::kArgbDepth, window, connection.root(),
                      static_cast<std::int16_t>(nativeFrame.x()), static_cast<std::int16_t>(nativeFrame.y()),
                      static_cast<std::uint16_t>(nativeFrame.width()),
                      static_cast<std::uint16_t>(nativeFrame.height()), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      connection.argbVisual(), mask, values.data());
    describe(connection, window, role);
    if (role == SurfaceRole::Overlay)
        selectPointer(connection, window);
    return window;
}

xcb_window_t createInputWindow(Connection &connection, const QRect &nativeFrame)
{
    const xcb_window_t window = xcb_generate_id(connection.xcb());
    constexpr std::uint32_t kOverrideRedirect = 1;
    const std::array<std::uint32_t, 2> values = {kOverrideRedirect, connection.arrowCursor()};
    xcb_create_window(connection.xcb(), XCB_COPY_FROM_PARENT, window, connection.root(),
                      static_cast<std::int16_t>(nativeFrame.x()), static_cast<std::int16_t>(nativeFrame.y()),
                      static_cast<std::uint16_t>(nativeFrame.width()),
                      static_cast<std::uint16_t>(nativeFrame.height()), 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT | XCB_CW_CURSOR, values.data());
    selectPointer(connection, window);
    return window;
}

void configureWindow(Connection &connection, xcb_window_t window, const QRect &nativeFrame)
{
    const std::array<std::uint32_t, 4> values = {
        static_cast<std::uint32_t>(nativeFrame.x()), static_cast<std::uint32_t>(nativeFrame.y()),
        static_cast<std::uint32_t>(nativeFrame.width()), static_cast<std::uint32_t>(nativeFrame.height())};
    xcb_configure_window(connection.xcb(), window,
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                             XCB_CONFIG_WINDOW_HEIGHT,
                         values.data());
}

} // namespace zeigewerk::platform::x11
