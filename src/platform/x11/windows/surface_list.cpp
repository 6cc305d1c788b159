#include "platform/x11/windows/surface_list.h"

#include "platform/x11/windows/x11_surface.h"

#include <algorithm>

namespace zeigewerk::platform::x11 {

X11Surface *SurfaceList::surfaceOf(xcb_window_t window) const
{
    const auto found = std::find_if(m_surfaces.begin(), m_surfaces.end(),
                                    [&](const X11Surface *surface) { return surface->owns(window); });
    return found == m_surfaces.end() ? nullptr : *found;
}

void SurfaceList::display()
{
    for (X11Surface *surface : m_surfaces)
        surface->display();
}

void SurfaceList::compositingChanged()
{
    for (X11Surface *surface : m_surfaces)
        surface->compositingChanged();
}

} // namespace zeigewerk::platform::x11
