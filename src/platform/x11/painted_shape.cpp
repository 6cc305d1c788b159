#include "platform/x11/painted_shape.h"

#include <xcb/shape.h>

#include <algorithm>
#include <vector>

namespace zeigewerk::platform::x11 {

namespace {

constexpr int kHalfOpaque = 128;

xcb_rectangle_t rectangle(const QRect &rect)
{
    return {static_cast<std::int16_t>(rect.x()), static_cast<std::int16_t>(rect.y()),
            static_cast<std::uint16_t>(rect.width()), static_cast<std::uint16_t>(rect.height())};
}

void change(Connection &connection, xcb_window_t window, xcb_shape_op_t operation,
            const std::vector<xcb_rectangle_t> &rects)
{
    xcb_shape_rectangles(connection.xcb(), operation, XCB_SHAPE_SK_BOUNDING, XCB_CLIP_ORDERING_UNSORTED,
                         window, 0, 0, static_cast<std::uint32_t>(rects.size()), rects.data());
}

/// Adds the stretches of one row of `rect` that are painted on.
void addSpans(const QImage &picture, const QRect &rect, int row, std::vector<xcb_rectangle_t> &spans)
{
    const auto *pixels = reinterpret_cast<const QRgb *>(picture.constScanLine(row));
    const auto isPainted = [](QRgb pixel) { return qAlpha(pixel) >= kHalfOpaque; };
    const QRgb *const end = pixels + rect.x() + rect.width();
    const QRgb *from = std::find_if(pixels + rect.x(), end, isPainted);
    while (from != end) {
        const QRgb *to = std::find_if_not(from, end, isPainted);
        spans.push_back(rectangle({static_cast<int>(from - pixels), row, static_cast<int>(to - from), 1}));
        from = std::find_if(to, end, isPainted);
    }
}

} // namespace

void showWhole(Connection &connection, xcb_window_t window)
{
    xcb_shape_mask(connection.xcb(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, window, 0, 0, XCB_PIXMAP_NONE);
}

void showNothing(Connection &connection, xcb_window_t window)
{
    change(connection, window, XCB_SHAPE_SO_SET, {});
}

void showPainted(Connection &connection, xcb_window_t window, const QImage &picture, const QRegion &region)
{
    std::vector<xcb_rectangle_t> changed;
    std::vector<xcb_rectangle_t> painted;
    for (const QRect &rect : region) {
        changed.push_back(rectangle(rect));
        for (int row = rect.top(); row <= rect.bottom(); ++row)
            addSpans(picture, rect, row, painted);
    }
    change(connection, window, XCB_SHAPE_SO_SUBTRACT, changed);
    change(connection, window, XCB_SHAPE_SO_UNION, painted);
}

} // namespace zeigewerk::platform::x11
