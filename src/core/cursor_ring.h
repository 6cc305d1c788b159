#pragma once

#include "platform/desktop.h"

#include <memory>

namespace zeigewerk {

/// The ring around the pointer: a small surface above all our other windows, painted once and then only
/// moved.
class CursorRing : private platform::SurfaceContent
{
public:
    /// The side of its square surface, in points.
    static constexpr double kSide = 56.0;

    explicit CursorRing(platform::Desktop &desktop);

    /// Centres the ring at that location: points, global coordinates, y up.
    void moveTo(QPointF mouseLocation);
    bool isVisible() const { return m_surface->isVisible(); }
    void orderFrontRegardless();
    void orderOut() { m_surface->orderOut(); }

private:
    void draw(platform::PaintTarget &target) override;

    std::unique_ptr<platform::Surface> m_surface;
};

} // namespace zeigewerk
