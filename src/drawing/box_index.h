#pragma once

#include "drawing/box.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zeigewerk {

/// Finds those among thousands of boxes that lie at one place by looking at that place alone. A box is known
/// by its number: how many there were before it.
///
/// The plane is cut into square cells, each of which has a list of the boxes in it. There are lists for a
/// desktop's worth of cells, and a cell beyond shares that of one within, so no place is out of reach.
/// Coordinates are in any unit and direction; those of a box that is not empty must be finite.
class BoxIndex
{
public:
    std::size_t size() const { return m_boxes.size(); }

    /// The new box's number is the size before. An empty box is counted and never found.
    void append(const Box &box);
    /// Drops the box of the largest number; there must be one.
    void removeLast();

    /// The numbers of the boxes that touch `area`, in ascending order.
    std::vector<std::uint32_t> touching(const Box &area) const;

private:
    using Numbers = std::vector<std::uint32_t>;

    /// The lists where a box belongs.
    template <typename Lists, typename Visit>
    static void forEachList(Lists &lists, const Box &box, const Visit &visit);
    /// Whether a box is too large to be entered everywhere that it lies.
    static bool isLarge(const Box &box);

    std::vector<Box> m_boxes;
    /// One for each cell; none before the first box.
    std::vector<Numbers> m_cells;
    /// Those that are looked at wherever one looks.
    Numbers m_large;
};

} // namespace zeigewerk
