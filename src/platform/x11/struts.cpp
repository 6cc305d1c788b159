#include "platform/x11/struts.h"

#include <QMargins>

#include <algorithm>
#include <array>

namespace zeigewerk::platform::x11 {

namespace {

constexpr std::array kEdges = {Strut::Edge::Left, Strut::Edge::Right, Strut::Edge::Top, Strut::Edge::Bottom};
constexpr std::size_t kDepthsOnly = kEdges.size();
constexpr std::size_t kDepthsAndRanges = 3 * kEdges.size();

bool isVertical(Strut::Edge edge)
{
    return edge == Strut::Edge::Left || edge == Strut::Edge::Right;
}

/// The values come from other programs and may be any number.
int bounded(std::uint32_t value, int max)
{
    return static_cast<int>(std::min(value, static_cast<std::uint32_t>(max)));
}

QRect stripOf(const Strut &strut, const QSize &desktop)
{
    const int length = strut.end - strut.start + 1;
    switch (strut.edge) {
    case Strut::Edge::Left:
        return {0, strut.start, strut.depth, length};
    case Strut::Edge::Right:
        return {desktop.width() - strut.depth, strut.start, strut.depth, length};
    case Strut::Edge::Top:
        return {strut.start, 0, length, strut.depth};
    case Strut::Edge::Bottom:
        break;
    }
    return {strut.start, desktop.height() - strut.depth, length, strut.depth};
}

} // namespace

std::vector<Strut> strutsOf(std::span<const std::uint32_t> values, const QSize &desktop)
{
    std::vector<Strut> struts;
    // The desktop's size is empty if the connection broke.
    if (desktop.isEmpty() || (values.size() != kDepthsOnly && values.size() != kDepthsAndRanges))
        return struts;
    for (std::size_t i = 0; i < kEdges.size(); ++i) {
        const bool vertical = isVertical(kEdges[i]);
        const int maxDepth = vertical ? desktop.width() : desktop.height();
        const int last = (vertical ? desktop.height() : desktop.width()) - 1;
        Strut strut{.edge = kEdges[i], .depth = bounded(values[i], maxDepth), .start = 0, .end = last};
        if (values.size() == kDepthsAndRanges) {
            strut.start = bounded(values[kEdges.size() + 2 * i], last + 1);
            strut.end = bounded(values[kEdges.size() + 2 * i + 1], last);
        }
        if (strut.depth > 0 && strut.end >= strut.start)
            struts.push_back(strut);
    }
    return struts;
}

QRect withoutStruts(const QRect &screen, const QSize &desktop, std::span<const Strut> struts)
{
    QMargins taken;
    for (const Strut &strut : struts) {
        const QRect part = stripOf(strut, desktop) & screen;
        const bool crosses =
            isVertical(strut.edge) ? part.width() == screen.width() : part.height() == screen.height();
        if (part.isEmpty() || crosses)
            continue;
        switch (strut.edge) {
        case Strut::Edge::Left:
            taken.setLeft(std::max(taken.left(), part.width()));
            break;
        case Strut::Edge::Right:
            taken.setRight(std::max(taken.right(), part.width()));
            break;
        case Strut::Edge::Top:
            taken.setTop(std::max(taken.top(), part.height()));
            break;
        case Strut::Edge::Bottom:
            taken.setBottom(std::max(taken.bottom(), part.height()));
            break;
        }
    }
    const QRect left = screen.marginsRemoved(taken);
    return left.isEmpty() ? QRect() : left;
}

} // namespace zeigewerk::platform::x11
