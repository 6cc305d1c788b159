#pragma once

#include <xcb/xcb.h>

#include <vector>

namespace zeigewerk::platform::x11 {

class X11Surface;

/// All surfaces, shown or hidden.
class SurfaceList
{
public:
    void add(X11Surface &surface) { m_surfaces.push_back(&surface); }
    void remove(X11Surface &surface) { std::erase(m_surfaces, &surface); }

    /// The surface that the window belongs to; none if it belongs to no surface.
    X11Surface *surfaceOf(xcb_window_t window) const;

    /// Has every surface paint and show its damaged parts.
    void display();
    /// The compositor came or went.
    void compositingChanged();

private:
    std::vector<X11Surface *> m_surfaces;
};

} // namespace zeigewerk::platform::x11
