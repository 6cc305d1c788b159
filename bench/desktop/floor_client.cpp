// Puts the damage of a stroke on the screen and does nothing else: see Floor. Prints "ready" once its window
// is shown; ends with its connection.

#include <sys/mman.h>
#include <unistd.h>
#include <xcb/shm.h>
#include <xcb/xcb.h>
#include <xcb/xinput.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

/// A stroke 5 pixels wide, plus the pixel that antialiasing may touch.
constexpr int kReach = 4;
constexpr std::uint32_t kInk = 0xFFF29A00;
constexpr std::uint8_t kDepth = 32;

struct Free
{
    void operator()(void *memory) const { std::free(memory); }
};
template <typename T>
std::unique_ptr<T, Free> owned(T *memory)
{
    return std::unique_ptr<T, Free>(memory);
}

[[noreturn]] void fail(const char *what)
{
    std::fprintf(stderr, "floor client: %s\n", what);
    std::exit(EXIT_FAILURE);
}

struct Point
{
    int x = 0;
    int y = 0;
};

class FloorClient
{
public:
    FloorClient()
        : m_xcb(xcb_connect(nullptr, nullptr))
    {
        if (xcb_connection_has_error(m_xcb))
            fail("no display");
        m_screen = xcb_setup_roots_iterator(xcb_get_setup(m_xcb)).data;
        makeWindow();
        makeBuffer();
        listen();
        xcb_map_window(m_xcb, m_window);
        xcb_flush(m_xcb);
    }

    [[noreturn]] void run()
    {
        while (const auto first = owned(xcb_wait_for_event(m_xcb))) {
            handle(*first);
            while (const auto next = owned(xcb_poll_for_event(m_xcb)))
                handle(*next);
            xcb_flush(m_xcb);
        }
        std::exit(EXIT_SUCCESS);
    }

private:
    void makeWindow()
    {
        const xcb_visualid_t visual = argbVisual();
        const xcb_colormap_t colormap = xcb_generate_id(m_xcb);
        xcb_create_colormap(m_xcb, XCB_COLORMAP_ALLOC_NONE, colormap, m_screen->root, visual);
        m_window = xcb_generate_id(m_xcb);
        const std::uint32_t values[] = {0, 0, 1, XCB_EVENT_MASK_EXPOSURE, colormap};
        xcb_create_window(m_xcb, kDepth, m_window, m_screen->root, 0, 0, width(), height(), 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, visual,
                          XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_OVERRIDE_REDIRECT |
                              XCB_CW_EVENT_MASK | XCB_CW_COLORMAP,
                          values);
        m_context = xcb_generate_id(m_xcb);
        xcb_create_gc(m_xcb, m_context, m_window, 0, nullptr);
    }

    xcb_visualid_t argbVisual() const
    {
        for (auto depth = xcb_screen_allowed_depths_iterator(m_screen); depth.rem; xcb_depth_next(&depth)) {
            if (depth.data->depth == kDepth)
                return xcb_depth_visuals_iterator(depth.data).data->visual_id;
        }
        fail("no visual with transparency");
    }

    void makeBuffer()
    {
        const std::size_t size = std::size_t{4} * width() * height();
        const int memory = memfd_create("floor", MFD_CLOEXEC);
        if (memory < 0 || ftruncate(memory, static_cast<off_t>(size)) < 0)
            fail("no memory to share");
        void *address = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, memory, 0);
        if (address == MAP_FAILED)
            fail("no memory to share");
        m_pixels = static_cast<std::uint32_t *>(address);
        xcb_shm_query_version(m_xcb);
        m_segment = xcb_generate_id(m_xcb);
        xcb_shm_attach_fd(m_xcb, m_segment, memory, 0);
    }

    void listen()
    {
        xcb_input_xi_query_version_unchecked(m_xcb, 2, 3);
        struct
        {
            xcb_input_event_mask_t head;
            std::uint32_t mask;
        } selection = {{XCB_INPUT_DEVICE_ALL_MASTER, 1},
                       XCB_INPUT_XI_EVENT_MASK_BUTTON_PRESS | XCB_INPUT_XI_EVENT_MASK_BUTTON_RELEASE |
                           XCB_INPUT_XI_EVENT_MASK_MOTION};
        xcb_input_xi_select_events(m_xcb, m_window, 1, &selection.head);
        m_xinput = xcb_get_extension_data(m_xcb, &xcb_input_id)->major_opcode;
    }

    void handle(const xcb_generic_event_t &event)
    {
        if ((event.response_type & 0x7F) == XCB_EXPOSE && !m_isShown) {
            m_isShown = true;
            std::puts("ready");
            std::fflush(stdout);
        }
        const auto &input = reinterpret_cast<const xcb_input_button_press_event_t &>(event);
        if (event.response_type != XCB_GE_GENERIC || input.extension != m_xinput)
            return;
        const Point place{input.event_x >> 16, input.event_y >> 16};
        if (input.event_type == XCB_INPUT_BUTTON_RELEASE)
            m_isDrawing = false;
        else if (input.event_type == XCB_INPUT_BUTTON_PRESS)
            m_isDrawing = true;
        else if (input.event_type == XCB_INPUT_MOTION && m_isDrawing)
            putSegment(m_last, place);
        m_last = place;
    }

    void putSegment(Point from, Point to)
    {
        const int left = std::max(std::min(from.x, to.x) - kReach, 0);
        const int top = std::max(std::min(from.y, to.y) - kReach, 0);
        const int right = std::min(std::max(from.x, to.x) + kReach, int{width()});
        const int bottom = std::min(std::max(from.y, to.y) + kReach, int{height()});
        for (int y = top; y < bottom; ++y) {
            std::uint32_t *row = m_pixels + std::ptrdiff_t{y} * width();
            std::fill(row + left, row + right, kInk);
        }
        xcb_shm_put_image(m_xcb, m_window, m_context, width(), height(), static_cast<std::uint16_t>(left),
                          static_cast<std::uint16_t>(top), static_cast<std::uint16_t>(right - left),
                          static_cast<std::uint16_t>(bottom - top), static_cast<std::int16_t>(left),
                          static_cast<std::int16_t>(top), kDepth, XCB_IMAGE_FORMAT_Z_PIXMAP, 0, m_segment, 0);
    }

    std::uint16_t width() const { return m_screen->width_in_pixels; }
    std::uint16_t height() const { return m_screen->height_in_pixels; }

    xcb_connection_t *m_xcb;
    xcb_screen_t *m_screen = nullptr;
    xcb_window_t m_window = 0;
    xcb_gcontext_t m_context = 0;
    xcb_shm_seg_t m_segment = 0;
    std::uint32_t *m_pixels = nullptr;
    std::uint8_t m_xinput = 0;
    bool m_isShown = false;
    bool m_isDrawing = false;
    Point m_last;
};

} // namespace

int main()
{
    FloorClient().run();
}
