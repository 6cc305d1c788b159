#pragma once

#include "drawing/box.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zeigewerk {

/// Finds the boxes that touch an area, among thousands, without looking at those elsewhere. A box is known by
/// its number, counted from 0 in the order they were added.
///
/// The plane is divided into square cells, each with a list of the boxes in it. The lists cover the area of a
/// desktop; cells beyond it share them, so coordinates are not limited. Coordinates may have any unit and
/// orientation, but those of a non-empty box must be finite.
class BoxIndex
{
public:
    std::size_t size() const { return m_boxes.size(); }

    /// Adds a box, whose number is the size before. An empty box counts but is never found.
    void append(const Box &box);
    /// Removes the box with the largest number. The index must not be empty.
    void removeLast();

    /// The numbers of the boxes that touch `area`, in ascending order.
    std::vector<std::uint32_t> touching(const Box &area) const;

private:
    using Numbers = std::vector<std::uint32_t>;

    /// Calls visit(list) for each list in which `box` belongs.
    template <typename Lists, typename Visit>
    static void forEachList(Lists &lists, const Box &box, const Visit &visit);
    /// Whether a box covers too many cells to be entered in all of their lists.
    static bool isLarge(const Box &box);

    std::vector<Box> m_boxes;
    /// One list for each cell; empty before the first box.
    std::vector<Numbers> m_cells;
    /// The large boxes, which every search checks.
    Numbers m_large;
};

} // namespace zeigewerk
