#pragma once

#include "drawing/box_index.h"
#include "drawing/shape.h"

#include <algorithm>
#include <vector>

namespace zeigewerk {

/// The finished shapes of a canvas, oldest first. It indexes them by place, so that painting one area costs
/// only the shapes there, even among thousands.
class ShapeList
{
public:
    const std::vector<Shape> &shapes() const { return m_shapes; }
    bool isEmpty() const { return m_shapes.empty(); }

    void append(Shape shape);
    /// Removes the newest shape. The list must not be empty.
    void removeLast();
    void clear();
    /// Removes each shape for which condition(shape) holds.
    template <typename Condition>
    void removeIf(const Condition &condition);

    /// Calls visit(shape) for each shape that may be visible in `area`, oldest first.
    template <typename Visit>
    void forEachNear(const Box &area, const Visit &visit) const;

private:
    /// Updates the index after the shapes from position `first` on have changed.
    void reindexFrom(std::size_t first);

    std::vector<Shape> m_shapes;
    BoxIndex m_index;
};

template <typename Condition>
void ShapeList::removeIf(const Condition &condition)
{
    const auto first = std::find_if(m_shapes.begin(), m_shapes.end(), condition);
    if (first == m_shapes.end())
        return;
    const auto firstIndex = static_cast<std::size_t>(first - m_shapes.begin());
    m_shapes.erase(std::remove_if(first, m_shapes.end(), condition), m_shapes.end());
    reindexFrom(firstIndex);
}

template <typename Visit>
void ShapeList::forEachNear(const Box &area, const Visit &visit) const
{
    for (const std::uint32_t number : m_index.touching(area))
        visit(m_shapes[number]);
}

} // namespace zeigewerk
