#include "clicks/click_ring.h"

#include "drawing/qt_color.h"

#include <QEasingCurve>
#include <QPainter>
#include <QRadialGradient>

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
constexpr QPointF kMiddle(ClickRing::kSide / 2, ClickRing::kSide / 2);
constexpr double kLinesAtOnce = 64.0;
constexpr std::chrono::nanoseconds kStepInterval(1'000'000'000 / 60);

/// "Ease out" as style sheets and animation frameworks define it, which none of Qt's named curves is.
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
    return {kMiddle - QPointF(reach, reach), kMiddle + QPointF(reach, reach)};
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
    // A clock that was set back would keep the ring on the screen until it has caught up.
    const bool isOver = age.count() < 0.0 || age >= kDuration;
    return isOver ? 1.0 : age / std::chrono::duration<double>(kDuration);
}

platform::Damage ClickRing::painted() const
{
    // A ring only grows, so this covers what it was before.
    return platform::Damage::of(squareAround(outerRadius(m_phase)));
}

void ClickRing::draw(QPainter &painter, const platform::Damage &)
{
    // The outline of a circle is many short lines of pixels, which Qt hands out to several threads: filling a
    // square with rings of colour takes a seventh of the processor time.
    const double pixel = 1.0 / painter.deviceTransform().m11();
    const double width = kStrokeWidth * m_phase.scale;
    const double end = outerRadius(m_phase) + pixel / 2;
    const QColor color = toQColor(m_color.withAlpha(m_color.alpha * m_phase.opacity));
    QColor nothing = color;
    nothing.setAlpha(0);
    // Each edge is a slope of one pixel.
    QRadialGradient ring(kMiddle, end);
    ring.setStops({{0.0, nothing},
                   {(end - width - pixel) / end, nothing},
                   {(end - width) / end, color},
                   {(end - pixel) / end, color},
                   {1.0, nothing}});
    const QRectF square = squareAround(end + pixel);
    // Nor are more lines than this filled at once in a single thread.
    const double step = kLinesAtOnce * pixel;
    for (double y = square.top(); y < square.bottom(); y += step)
        painter.fillRect(QRectF(square.left(), y, square.width(), std::min(step, square.bottom() - y)), ring);
}

} // namespace zeigewerk
