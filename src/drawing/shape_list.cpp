#include "drawing/shape_list.h"

#include "drawing/render_shape.h"

#include <utility>

namespace zeigewerk {

void ShapeList::append(Shape shape)
{
    m_shapes.push_back(std::move(shape));
    reindexFrom(m_shapes.size() - 1);
}

void ShapeList::removeLast()
{
    m_shapes.pop_back();
    reindexFrom(m_shapes.size());
}

void ShapeList::clear()
{
    m_shapes.clear();
    m_index = {};
}

void ShapeList::reindexFrom(std::size_t first)
{
    while (m_index.size() > first)
        m_index.removeLast();
    for (std::size_t i = first; i < m_shapes.size(); ++i)
        m_index.append(paintedBounds(m_shapes[i]));
}

} // namespace zeigewerk
