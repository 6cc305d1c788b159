#pragma once

#include "drawing/box_index.h"
#include "drawing/shape.h"

#include <algorithm>
#include <vector>

namespace zeigewerk {

/// The finished shapes of a canvas, oldest first. It knows where each lies, so that painting one place among
/// thousands of shapes costs what lies there.
class ShapeList
{
public:
    const std::vector<Shape> &shapes() const { return m_shapes; }
    bool isEmpty() const { return m_shapes.empty(); }

    void append(Shape shape);
    /// Drops the newest; there must be one.
    void removeLast();
    void clear();
    /// Drops each shape for which condition(shape) holds.
    template <typename Condition>
    void removeIf(const Condition &condition);

    /// Calls visit(shape) for each shape that may be seen in `area`, oldest first.
    template <typename Visit>
    void forEachNear(const Box &area, const Visit &visit) const;

private:
    /// To be called when what comes after the first so many has changed.
    void placeFrom(std::size_t first);

    std::vector<Shape> m_shapes;
    BoxIndex m_places;
};

template <typename Condition>
void ShapeList::removeIf(const Condition &condition)
{
    const auto first = std::find_if(m_shapes.begin(), m_shapes.end(), condition);
    if (first == m_shapes.end())
        return;
    const auto place = static_cast<std::size_t>(first - m_shapes.begin());
    m_shapes.erase(std::remove_if(first, m_shapes.end(), condition), m_shapes.end());
    placeFrom(place);
}

template <typename Visit>
void ShapeList::forEachNear(const Box &area, const Visit &visit) const
{
    for (const std::uint32_t place : m_places.touching(area))
        visit(m_shapes[place]);
}

} // namespace zeigewerk
