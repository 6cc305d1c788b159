#include "core/cursor_ring.h"

#include "drawing/qt_color.h"
#include "platform/paint_target.h"

namespace zeigewerk {

namespace {

constexpr double kInset = 4.0;
constexpr double kRingWidth = 2.5;
constexpr double kFillAlpha = 0.2;
constexpr double kStrokeAlpha = 0.9;

} // namespace

CursorRing::CursorRing(platform::Desktop &desktop)
    : m_surface(desktop.makeSurface(platform::SurfaceRole::Effect, QRectF(0, 0, kSide, kSide)))
{
    m_surface->setIgnoresMouseEvents(true);
    m_surface->setContent(this);
}

void CursorRing::moveTo(QPointF mouseLocation)
{
    m_surface->setFrameOrigin(mouseLocation - QPointF(kSide / 2, kSide / 2));
}

void CursorRing::orderFrontRegardless()
{
    const bool wasHidden = !m_surface->isVisible();
    m_surface->orderFrontRegardless();
    if (wasHidden)
        m_surface->setNeedsDisplay(platform::Damage::everything());
}

void CursorRing::draw(platform::PaintTarget &target)
{
    QPainter &painter = target.painter();
    // Always orange: it is the presenter's mark, not part of the drawing.
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(toQColor(kOrange.withAlpha(kStrokeAlpha)), kRingWidth));
    painter.setBrush(toQColor(kOrange.withAlpha(kFillAlpha)));
    painter.drawEllipse(QRectF(0, 0, kSide, kSide).adjusted(kInset, kInset, -kInset, -kInset));
}

} // namespace zeigewerk
