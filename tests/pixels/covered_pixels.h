#pragma once

#include "drawing/blend.h"
#include "platform/paint_target.h"
#include "random_input.h"

#include <QRect>

#include <vector>

namespace zeigewerk::test {

/// In pixels, which equal points here.
inline constexpr QSize kSurface(120, 90);
inline constexpr QRect kWholeSurface(QPoint(0, 0), kSurface);
inline constexpr Premultiplied kBlackInk = 0xFF000000U;

/// The coverage of each pixel of the rectangle (0 to 255) after `paint` has painted in black, row by row.
template <typename Paint>
std::vector<int> coverageBy(const Paint &paint, const QRect &rect)
{
    platform::PaintTarget target(platform::ViewGeometry(kSurface, 1.0));
    target.select(rect);
    paint(target);
    std::vector<int> values;
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        for (int x = 0; x < rect.width(); ++x)
            values.push_back(static_cast<int>(target.row(y)[x] >> 24));
    }
    return values;
}

/// A small rectangle on the surface.
inline QRect randomRect(RandomInput &random)
{
    constexpr int kMaxSide = 19;
    const int width = random.integer(1, kMaxSide);
    const int height = random.integer(1, kMaxSide);
    return {random.integer(0, kSurface.width() - kMaxSide - 1),
            random.integer(0, kSurface.height() - kMaxSide - 1), width, height};
}

} // namespace zeigewerk::test
