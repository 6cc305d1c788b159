#include "compositor_probe.h"

#include "screenshot.h"

namespace zeigewerk::rig {

namespace {

constexpr std::uint32_t kWhite = 0xFFFFFFFF;
constexpr std::uint32_t kHalfRed = 0x80800000; // premultiplied, as X expects
constexpr QRgb kBlended = 0xFFFF7F7F;
constexpr QRect kArea(0, 0, 4, 4);

xcb_visualid_t argbVisual(const xcb_screen_t &screen)
{
    for (auto depths = xcb_screen_allowed_depths_iterator(&screen); depths.rem > 0; xcb_depth_next(&depths))
        if (depths.data->depth == 32)
            return xcb_depth_visuals(depths.data)->visual_id;
    return screen.root_visual;
}

} // namespace

CompositorProbe::CompositorProbe(Client &client, QPoint place)
    : m_client(client)
    , m_place(place)
    , m_lower(show(client.screen().root_depth, client.screen().root_visual, kWhite))
    , m_upper(show(32, argbVisual(client.screen()), kHalfRed))
{
    m_client.roundTrip();
}

CompositorProbe::~CompositorProbe()
{
    destroy();
}

xcb_window_t CompositorProbe::show(std::uint8_t depth, xcb_visualid_t visual, std::uint32_t pixel)
{
    xcb_connection_t *c = m_client.connection();
    const xcb_colormap_t colormap = xcb_generate_id(c);
    xcb_create_colormap(c, XCB_COLORMAP_ALLOC_NONE, colormap, m_client.root(), visual);
    const xcb_window_t window = xcb_generate_id(c);
    const std::uint32_t values[] = {pixel, 0, 1, colormap};
    xcb_create_window(c, depth, window, m_client.root(), static_cast<std::int16_t>(m_place.x()),
                      static_cast<std::int16_t>(m_place.y()), static_cast<std::uint16_t>(kArea.width()),
                      static_cast<std::uint16_t>(kArea.height()), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, visual,
                      XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_COLORMAP,
                      values);
    xcb_map_window(c, window);
    xcb_free_colormap(c, colormap);
    return window;
}

bool CompositorProbe::isBlended()
{
    return Screenshot::of(m_client).isFilled(QColor(kBlended), kArea.translated(m_place), 1);
}

bool CompositorProbe::isGone()
{
    destroy();
    return Screenshot::of(m_client).count(QColor(kBlended), kArea.translated(m_place), 1) == 0;
}

void CompositorProbe::destroy()
{
    for (xcb_window_t *window : {&m_upper, &m_lower}) {
        if (*window != XCB_WINDOW_NONE)
            xcb_destroy_window(m_client.connection(), *window);
        *window = XCB_WINDOW_NONE;
    }
    m_client.roundTrip();
}

} // namespace zeigewerk::rig
