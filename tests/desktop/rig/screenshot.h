// What is on the screen.
#pragma once

#include <QColor>
#include <QImage>
#include <QRect>
#include <QString>

#include <xcb/xcb.h>

namespace zeigewerk::rig {

class Client;

/// The pixels of the root window at one moment: with a compositor its output, without one the windows
/// themselves. The pointer is never included. Places are native root pixels.
class Screenshot
{
public:
    /// Null (isNull) if the display is gone.
    static Screenshot of(Client &client);
    /// The content of a window of depth 32 or 24, before any compositing; places are relative to its corner.
    /// Null if it is not entirely on the screen.
    static Screenshot of(Client &client, xcb_window_t window);

    bool isNull() const { return m_image.isNull(); }
    const QImage &image() const { return m_image; }
    QRect rect() const { return m_image.rect(); }

    /// The colour of a pixel, or an invalid colour outside the screen.
    QColor pixel(QPoint place) const;
    /// How many pixels of the rectangle have that colour, within the tolerance for each of red, green and
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

/// Whether two screenshots differ within a rectangle by more than the tolerance in any pixel's red, green or
/// blue (0 to 255). Pixels that only one of them contains differ.
bool differs(const Screenshot &one, const Screenshot &other, const QRect &rect, int tolerance = 0);

} // namespace zeigewerk::rig
