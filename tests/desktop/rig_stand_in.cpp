// Imitates the program as far as the rig depends on it: it grabs Ctrl+Alt+P, shows a half-transparent
// override-redirect window, and ends on SIGTERM.
#include <unistd.h>
#include <xcb/xcb.h>

#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <initializer_list>

namespace {

constexpr xcb_keycode_t kKeyP = 25 + 8;
constexpr std::uint32_t kHalfRed = 0x80800000; // premultiplied ARGB

xcb_visualid_t argbVisual(const xcb_screen_t *screen)
{
    for (auto depths = xcb_screen_allowed_depths_iterator(screen); depths.rem > 0; xcb_depth_next(&depths))
        if (depths.data->depth == 32)
            return xcb_depth_visuals(depths.data)->visual_id;
    return screen->root_visual;
}

void showWindow(xcb_connection_t *c, const xcb_screen_t *screen)
{
    const xcb_visualid_t visual = argbVisual(screen);
    const xcb_colormap_t colormap = xcb_generate_id(c);
    xcb_create_colormap(c, XCB_COLORMAP_ALLOC_NONE, colormap, screen->root, visual);
    const xcb_window_t window = xcb_generate_id(c);
    const std::uint32_t values[] = {kHalfRed, 0, 1, colormap};
    xcb_create_window(
        c, 32, window, screen->root, 100, 100, 200, 150, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, visual,
        XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_COLORMAP, values);
    xcb_map_window(c, window);
}

bool takeHotKey(xcb_connection_t *c, const xcb_screen_t *screen)
{
    for (const int locks : {0, +XCB_MOD_MASK_LOCK, +XCB_MOD_MASK_2, XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2}) {
        const auto state = static_cast<std::uint16_t>(XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1 | locks);
        const xcb_void_cookie_t grab =
            xcb_grab_key_checked(c, 1, screen->root, state, kKeyP, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        if (xcb_generic_error_t *error = xcb_request_check(c, grab)) {
            std::free(error);
            return false;
        }
    }
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    const char *option = argc > 1 ? argv[1] : "";
    if (std::strcmp(option, "--exit-with-3") == 0)
        return 3;
    if (std::strcmp(option, "--leave-child") == 0 && fork() == 0) {
        setsid();
        pause();
    }

    sigset_t ending;
    sigemptyset(&ending);
    sigaddset(&ending, SIGTERM);
    sigprocmask(SIG_BLOCK, &ending, nullptr);
    xcb_connection_t *c = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(c) != 0)
        return 1;
    const xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(c)).data;
    showWindow(c, screen);
    if (!takeHotKey(c, screen))
        return 1;
    std::puts("the stand-in is ready");
    std::fflush(stdout);

    int signal = 0;
    // Ignores SIGTERM, like a program that hangs.
    while (sigwait(&ending, &signal) == 0 && std::strcmp(option, "--ignore-sigterm") == 0) {
    }
    xcb_disconnect(c);
    return 0;
}
