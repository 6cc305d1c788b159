#pragma once

#include <QPointF>
#include <QRectF>

#include <algorithm>
#include <limits>

namespace zeigewerk {

/// A rectangle that holds points: unlike QRectF one without any size still holds the point that it is.
struct Box
{
    // Empty: so that nothing is touched, and adding is taking the smallest and largest.
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
    /// Whether they have a point in common; an empty one has none with any.
    bool touches(const Box &other) const
    {
        return left <= other.right && other.left <= right && bottom <= other.top && other.bottom <= top;
    }
};

} // namespace zeigewerk
