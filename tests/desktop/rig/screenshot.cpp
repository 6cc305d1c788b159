#include "screenshot.h"

#include "client.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace zeigewerk::rig {

namespace {

bool isNear(QRgb one, QRgb other, int tolerance)
{
    return std::abs(qRed(one) - qRed(other)) <= tolerance &&
           std::abs(qGreen(one) - qGreen(other)) <= tolerance &&
           std::abs(qBlue(one) - qBlue(other)) <= tolerance;
}

/// Calls visit(place) for each pixel of the colour within the rectangle.
template <typename Visit>
void forEachPixel(const QImage &image, QRgb color, const QRect &rect, int tolerance, const Visit &visit)
{
    const QRect inside = rect & image.rect();
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        for (int x = inside.left(); x <= inside.right(); ++x)
            if (isNear(line[x], color, tolerance))
                visit(QPoint(x, y));
    }
}

} // namespace

Screenshot Screenshot::of(Client &client)
{
    return of(client, client.root());
}

Screenshot Screenshot::of(Client &client, xcb_window_t window)
{
    xcb_connection_t *c = client.connection();
    const auto geometry = owned(xcb_get_geometry_reply(c, xcb_get_geometry(c, window), nullptr));
    if (!geometry)
        return Screenshot(QImage());
    constexpr std::uint32_t kAllPlanes = ~0u;
    const auto cookie = xcb_get_image(c, XCB_IMAGE_FORMAT_Z_PIXMAP, window, 0, 0, geometry->width,
                                      geometry->height, kAllPlanes);
    auto *reply = xcb_get_image_reply(c, cookie, nullptr);
    if (!reply)
        return Screenshot(QImage());
    // The image shares the reply's memory: copying 8 MB or more would cost more than looking at it.
    const int bytesPerLine = geometry->width * 4;
    return Screenshot(QImage(xcb_get_image_data(reply), geometry->width, geometry->height, bytesPerLine,
                             QImage::Format_RGB32, std::free, reply));
}

QColor Screenshot::pixel(QPoint place) const
{
    return m_image.valid(place) ? m_image.pixelColor(place) : QColor();
}

int Screenshot::count(const QColor &color, const QRect &rect, int tolerance) const
{
    int found = 0;
    forEachPixel(m_image, color.rgb(), rect, tolerance, [&](QPoint) { ++found; });
    return found;
}

bool Screenshot::isFilled(const QColor &color, const QRect &rect, int tolerance) const
{
    return !rect.isEmpty() && count(color, rect, tolerance) == rect.width() * rect.height();
}

QRect Screenshot::bounds(const QColor &color, const QRect &rect, int tolerance) const
{
    QRect found;
    forEachPixel(m_image, color.rgb(), rect, tolerance,
                 [&](QPoint place) { found |= QRect(place, QSize(1, 1)); });
    return found;
}

bool differs(const Screenshot &one, const Screenshot &other, const QRect &rect, int tolerance)
{
    if ((rect & one.rect()) != (rect & other.rect()))
        return true;
    const QRect inside = rect & one.rect();
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        const auto *first = reinterpret_cast<const QRgb *>(one.image().constScanLine(y));
        const auto *second = reinterpret_cast<const QRgb *>(other.image().constScanLine(y));
        for (int x = inside.left(); x <= inside.right(); ++x)
            if (!isNear(first[x], second[x], tolerance))
                return true;
    }
    return false;
}

} // namespace zeigewerk::rig
