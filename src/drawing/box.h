#pragma once

#include <QPointF>
#include <QRectF>

#include <algorithm>
#include <limits>

namespace zeigewerk {

/// A closed rectangle: unlike a QRectF, one of zero size still contains a point.
struct Box
{
    // An empty box touches nothing, and adding to it needs no special case.
    double left = std::numeric_limits<double>::infinity();
    double bottom = std::numeric_limits<double>::infinity();
    double right = -std::numeric_limits<double>::infinity();
    double top = -std::numeric_limits<double>::infinity();

    static Box of(const QRectF &rect) { return {rect.left(), rect.top(), rect.right(), rect.bottom()}; }

    bool isEmpty() const { return right < left; }
    void add(QPointF point) { add(Box{point.x(), point.y(), point.x(), point.y()}); }
    void add(const Box &other)
    {
        left = std::min(left, other.left);
        bottom = std::min(bottom, other.bottom);
        right = std::max(right, other.right);
        top = std::max(top, other.top);
    }
    Box grown(double margin) const { return {left - margin, bottom - margin, right + margin, top + margin}; }
    /// Whether the boxes share a point. An empty box touches none.
    bool touches(const Box &other) const
    {
        return left <= other.right && other.left <= right && bottom <= other.top && other.bottom <= top;
    }
};

} // namespace zeigewerk
