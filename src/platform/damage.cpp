#include "platform/damage.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace zeigewerk::platform {

namespace {

/// The maximum of the shorter side of a piece of a diagonal stroke, in points. Shorter pieces fit the stroke
/// more closely, but each costs a rectangle.
constexpr double kPieceExtent = 32.0;
/// Enough for a diagonal across a large screen. Longer strokes lie mostly outside it.
constexpr double kMaxPieces = 96.0;

bool isFinite(const QRectF &rect)
{
    return std::isfinite(rect.left()) && std::isfinite(rect.right()) && std::isfinite(rect.top()) &&
           std::isfinite(rect.bottom());
}

// QRectF's own union, intersection and containment ignore empty rectangles. Here those are points and lines,
// and they count.

QRectF united(const QRectF &a, const QRectF &b)
{
    return {QPointF(std::min(a.left(), b.left()), std::min(a.top(), b.top())),
            QPointF(std::max(a.right(), b.right()), std::max(a.bottom(), b.bottom()))};
}

bool touch(const QRectF &a, const QRectF &b)
{
    return !(a.right() < b.left() || b.right() < a.left() || a.bottom() < b.top() || b.bottom() < a.top());
}

bool holds(const QRectF &outer, const QRectF &inner)
{
    return outer.left() <= inner.left() && outer.right() >= inner.right() && outer.top() <= inner.top() &&
           outer.bottom() >= inner.bottom();
}

/// The area that is repainted for a rectangle. It is never 0, since antialiasing adds a pixel on every side.
double paintedPixels(const QRectF &rect)
{
    return (rect.width() + 2.0) * (rect.height() + 2.0);
}

double wasteOfUniting(const QRectF &a, const QRectF &b)
{
    return paintedPixels(united(a, b)) - paintedPixels(a) - paintedPixels(b);
}

} // namespace

Damage Damage::everything()
{
    Damage damage;
    damage.m_everything = true;
    return damage;
}

Damage Damage::of(const QRectF &rect)
{
    Damage damage;
    damage.add(rect);
    return damage;
}

void Damage::add(const QRectF &rect)
{
    if (m_everything)
        return;
    if (!isFinite(rect)) {
        *this = everything();
        return;
    }
    append(rect.normalized());
}

void Damage::add(const Damage &other)
{
    if (other.m_everything) {
        *this = everything();
        return;
    }
    if (&other == this)
        return;
    for (const QRectF &rect : other.m_rects)
        add(rect);
}

void Damage::addStroke(QPointF from, QPointF to, double halfWidth)
{
    const QPointF delta = to - from;
    const double shortSide = std::min(std::abs(delta.x()), std::abs(delta.y()));
    if (m_everything || !std::isfinite(delta.x()) || !std::isfinite(delta.y())) {
        *this = everything();
        return;
    }
    const int pieces = static_cast<int>(std::clamp(std::ceil(shortSide / kPieceExtent), 1.0, kMaxPieces));
    QPointF pieceStart = from;
    for (int i = 1; i <= pieces; ++i) {
        const QPointF pieceEnd = i == pieces ? to : from + delta * (static_cast<double>(i) / pieces);
        addPiece(
            QRectF(pieceStart, pieceEnd).normalized().adjusted(-halfWidth, -halfWidth, halfWidth, halfWidth),
            kPieceExtent + 2.0 * halfWidth);
        pieceStart = pieceEnd;
    }
}

bool Damage::touches(const QRectF &rect) const
{
    if (m_everything)
        return true;
    const QRectF normalized = rect.normalized();
    return std::any_of(m_rects.begin(), m_rects.end(),
                       [&](const QRectF &damaged) { return touch(damaged, normalized); });
}

void Damage::addPiece(const QRectF &piece, double maxShortSide)
{
    if (m_everything || m_rects.empty() || !isFinite(piece) || !touch(m_rects.back(), piece)) {
        add(piece);
        return;
    }
    const QRectF both = united(m_rects.back(), piece);
    if (std::min(both.width(), both.height()) > maxShortSide)
        add(piece);
    else
        m_rects.back() = both;
}

void Damage::append(const QRectF &rect)
{
    if (!m_rects.empty()) {
        if (holds(m_rects.back(), rect))
            return;
        if (holds(rect, m_rects.back())) {
            m_rects.back() = rect;
            return;
        }
    }
    m_rects.push_back(rect);
    if (m_rects.size() > kMaxRects)
        uniteNeighbours();
}

void Damage::uniteNeighbours()
{
    // Consecutive rectangles mostly come from the same stroke and lie side by side, so only pairs of them are
    // compared, not all with all.
    std::vector<std::size_t> pairs(m_rects.size() / 2);
    std::iota(pairs.begin(), pairs.end(), std::size_t{0});
    const auto waste = [this](std::size_t pair) {
        return wasteOfUniting(m_rects[2 * pair], m_rects[2 * pair + 1]);
    };
    const auto half = pairs.begin() + static_cast<std::ptrdiff_t>(pairs.size() / 2);
    std::nth_element(pairs.begin(), half, pairs.end(),
                     [&](std::size_t a, std::size_t b) { return waste(a) < waste(b); });

    std::vector<bool> unites(pairs.size(), false);
    std::for_each(pairs.begin(), half, [&](std::size_t pair) { unites[pair] = true; });
    std::vector<QRectF> kept;
    kept.reserve(m_rects.size());
    for (std::size_t i = 0; i < m_rects.size(); ++i) {
        if (i % 2 == 1 && unites[i / 2])
            kept.back() = united(kept.back(), m_rects[i]);
        else
            kept.push_back(m_rects[i]);
    }
    m_rects = std::move(kept);
}

} // namespace zeigewerk::platform
