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
    placeFrom(0);
}

void ShapeList::placeFrom(std::size_t first)
{
    m_boxes.resize(first);
    for (std::size_t i = first; i < m_shapes.size(); ++i)
        m_boxes.push_back(paintedBounds(m_shapes[i]));
    const std::size_t firstRun = first / kRun;
    m_runs.resize(firstRun);
    for (std::size_t i = firstRun * kRun; i < m_boxes.size(); ++i) {
        if (i % kRun == 0)
            m_runs.emplace_back();
        m_runs.back().add(m_boxes[i]);
    }
}

} // namespace zeigewerk
