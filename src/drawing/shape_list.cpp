#include "drawing/shape_list.h"

#include "drawing/render_shape.h"

#include <utility>

namespace zeigewerk {

void ShapeList::append(Shape shape)
{
    m_shapes.push_back(std::move(shape));
    placeFrom(m_shapes.size() - 1);
}

void ShapeList::removeLast()
{
    m_shapes.pop_back();
    placeFrom(m_shapes.size());
}

void ShapeList::clear()
{
    m_shapes.clear();
    m_places = {};
}

void ShapeList::placeFrom(std::size_t first)
{
    while (m_places.size() > first)
        m_places.removeLast();
    for (std::size_t i = first; i < m_shapes.size(); ++i)
        m_places.append(paintedBounds(m_shapes[i]));
}

} // namespace zeigewerk
