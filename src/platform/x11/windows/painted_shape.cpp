#include "platform/x11/windows/painted_shape.h"

#include <xcb/shape.h>

#include <algorithm>
#include <vector>

namespace zeigewerk::platform::x11 {

namespace {

/// Less than the highlighter's opacity (102), more than the faint outer pixels of an antialiased edge.
constexpr int kVisibleAlpha = 64;
/// More than the spotlight's dimming (140), less than the nearly covered pixels of an antialiased edge.
constexpr int kSolidAlpha = 192;

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

struct Spans
{
    std::vector<xcb_rectangle_t> painted;
    std::vector<xcb_rectangle_t> clear;
};

/// Adds the spans of one row of `rect`.
void addRow(const QImage &picture, const QRect &rect, int row, Spans &spans)
{
    const auto *pixels = reinterpret_cast<const QRgb *>(picture.constScanLine(row));
    const int minAlpha = row % 2 == 0 ? kVisibleAlpha : kSolidAlpha;
    const auto isPainted = [&](QRgb pixel) { return qAlpha(pixel) >= minAlpha; };
    const QRgb *const end = pixels + rect.x() + rect.width();
    for (const QRgb *from = pixels + rect.x(); from != end;) {
        const bool painted = isPainted(*from);
        const QRgb *to = std::find_if(from, end, [&](QRgb pixel) { return isPainted(pixel) != painted; });
        (painted ? spans.painted : spans.clear)
            .push_back(rectangle({static_cast<int>(from - pixels), row, static_cast<int>(to - from), 1}));
        from = to;
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

void showColors(QImage &picture, const QRegion &region)
{
    for (const QRect &rect : region) {
        for (int row = rect.top(); row <= rect.bottom(); ++row) {
            auto *pixels = reinterpret_cast<QRgb *>(picture.scanLine(row));
            std::transform(pixels + rect.left(), pixels + rect.left() + rect.width(), pixels + rect.left(),
                           [](QRgb pixel) { return qUnpremultiply(pixel); });
        }
    }
}

void showPainted(Connection &connection, xcb_window_t window, const QImage &picture, const QRegion &region)
{
    Spans spans;
    for (const QRect &rect : region) {
        for (int row = rect.top(); row <= rect.bottom(); ++row)
            addRow(picture, rect, row, spans);
    }
    // Union first: pixels that stay painted are never uncovered in between.
    change(connection, window, XCB_SHAPE_SO_UNION, spans.painted);
    change(connection, window, XCB_SHAPE_SO_SUBTRACT, spans.clear);
}

} // namespace zeigewerk::platform::x11
