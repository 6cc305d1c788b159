// What stands on the screen.
#pragma once

#include <QColor>
#include <QImage>
#include <QRect>
#include <QString>

#include <xcb/xcb.h>

namespace zeigewerk::rig {

class Client;

/// The root's pixels at one moment: with a compositor, what it made of all windows; without one, the windows
/// themselves. The pointer's picture is never in it. Places are native root pixels.
class Screenshot
{
public:
    /// Null (isNull) if the display is gone.
    static Screenshot of(Client &client);
    /// What a window of 32 or 24 bits holds, whatever a compositor makes of it; places count from its corner.
    /// Null if it is not on the screen, or not with all of it.
    static Screenshot of(Client &client, xcb_window_t window);

    bool isNull() const { return m_image.isNull(); }
    const QImage &image() const { return m_image; }
    QRect rect() const { return m_image.rect(); }

    /// The colour of a pixel, or an invalid colour outside the screen.
    QColor pixel(QPoint place) const;
    /// How many pixels of the rectangle have a colour, give or take the tolerance in each of red, green and
    /// blue (0 to 255).
    int count(const QColor &color, const QRect &rect, int tolerance = 0) const;
    /// Whether every pixel of the rectangle has that colour; false for a rectangle outside the screen.
    bool isFilled(const QColor &color, const QRect &rect, int tolerance = 0) const;
    /// The smallest rectangle around the pixels of that colour within a rectangle; empty if there is none.
    QRect bounds(const QColor &color, const QRect &rect, int tolerance = 0) const;

    bool save(const QString &path) const { return m_image.save(path); }

private:
    explicit Screenshot(const QImage &image)
        : m_image(image)
    {
    }

    QImage m_image;
};

/// Whether two pictures differ within a rectangle by more than the tolerance in some pixel's red, green or
/// blue (0 to 255). What lies outside one of them but inside the other differs.
bool differs(const Screenshot &one, const Screenshot &other, const QRect &rect, int tolerance = 0);

} // namespace zeigewerk::rig
