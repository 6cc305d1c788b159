#include "clicks/click_ring.h"

#include "drawing/circles.h"
#include "platform/paint_target.h"

#include <QEasingCurve>

#include <algorithm>
#include <utility>

namespace zeigewerk {

namespace {

constexpr double kDiameter = 56.0;
constexpr double kStrokeWidth = 4.0;
constexpr double kFirstScale = 0.35;
constexpr double kLastScale = 1.15;
constexpr double kFirstOpacity = 0.9;
constexpr double kLastOpacity = 0.0;
constexpr QPointF kCenter(ClickRing::kSide / 2, ClickRing::kSide / 2);
constexpr std::chrono::nanoseconds kStepInterval(1'000'000'000 / 60);

/// "Ease out" as defined by style sheets and animation frameworks. None of Qt's named curves matches it.
QEasingCurve easeOut()
{
    QEasingCurve curve(QEasingCurve::BezierSpline);
    curve.addCubicBezierSegment({0.0, 0.0}, {0.58, 1.0}, {1.0, 1.0});
    return curve;
}

double outerRadius(const RingPhase &phase)
{
    return (kDiameter + kStrokeWidth) / 2 * phase.scale;
}

QRectF squareAround(double reach)
{
    return {kCenter - QPointF(reach, reach), kCenter + QPointF(reach, reach)};
}

} // namespace

ClickRing::Live ClickRing::live;

RingPhase RingPhase::at(double progress)
{
    static const QEasingCurve curve = easeOut();
    const double eased = curve.valueForProgress(progress);
    return {.scale = kFirstScale + eased * (kLastScale - kFirstScale),
            .opacity = kFirstOpacity + eased * (kLastOpacity - kFirstOpacity)};
}

void ClickRing::show(platform::Desktop &desktop, QPointF at, const Color &color, Clock clock)
{
    live.rings.push_back(std::unique_ptr<ClickRing>(new ClickRing(desktop, at, color, std::move(clock))));
    if (!live.timer)
        live.timer = std::make_unique<RepeatingTimer>(kStepInterval, &ClickRing::step);
}

ClickRing::ClickRing(platform::Desktop &desktop, QPointF at, const Color &color, Clock clock)
    : m_desktop(desktop)
    , m_color(color)
    , m_clock(std::move(clock))
    , m_shownAt(m_clock())
    , m_surface(desktop.makeSurface(platform::SurfaceRole::Effect,
                                    QRectF(at - QPointF(kSide / 2, kSide / 2), QSizeF(kSide, kSide))))
{
    m_surface->setIgnoresMouseEvents(true);
    m_surface->setContent(this);
    m_surface->orderFrontRegardless();
    m_surface->setNeedsDisplay(platform::Damage::everything());
}

void ClickRing::step()
{
    for (const auto &ring : live.rings) {
        ring->m_phase = RingPhase::at(ring->progress());
        ring->m_surface->setNeedsDisplay(ring->painted());
    }
    removeWhere([](const ClickRing &ring) { return ring.progress() >= 1.0; });
}

void ClickRing::dropAll(const platform::Desktop &desktop)
{
    removeWhere([&](const ClickRing &ring) { return &ring.m_desktop == &desktop; });
}

template <typename Condition>
void ClickRing::removeWhere(Condition condition)
{
    std::vector<std::unique_ptr<ClickRing>> &rings = live.rings;
    const auto gone = std::stable_partition(rings.begin(), rings.end(),
                                            [&](const auto &ring) { return !condition(*ring); });
    std::for_each(gone, rings.end(), [](const auto &ring) { ring->m_surface->orderOut(); });
    rings.erase(gone, rings.end());
    if (rings.empty())
        live.timer.reset();
}

double ClickRing::progress() const
{
    const std::chrono::duration<double> age = m_clock() - m_shownAt;
    // If the clock was set back, the ring would otherwise stay until the clock catches up.
    const bool isOver = age.count() < 0.0 || age >= kDuration;
    return isOver ? 1.0 : age / std::chrono::duration<double>(kDuration);
}

platform::Damage ClickRing::painted() const
{
    // A ring only grows, so this covers its previous phase, too.
    return platform::Damage::of(squareAround(outerRadius(m_phase)));
}

void ClickRing::draw(platform::PaintTarget &target)
{
    const platform::ViewGeometry &geometry = target.geometry();
    const double scale = m_phase.scale * geometry.scale();
    strokeCircle(target, geometry.toPixels(kCenter), kDiameter / 2 * scale, kStrokeWidth / 2 * scale,
                 premultiplied(m_color.withAlpha(m_color.alpha * m_phase.opacity)));
}

} // namespace zeigewerk
