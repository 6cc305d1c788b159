#include "drawing/box_index.h"

#include <algorithm>
#include <cmath>

namespace zeigewerk {

namespace {

/// The side of a cell, in the boxes' unit. With smaller cells, one stroke would be entered in many lists.
constexpr double kCell = 128.0;
/// Lists along each side. Cells 4096 units apart share a list.
constexpr int kLists = 32;
/// A box that belongs in more lists than this is large.
constexpr int kMaxLists = 64;

/// The lists of the cells between two coordinates, along one side.
struct Range
{
    int first;
    int count;
};

Range listsBetween(double low, double high)
{
    const double first = std::floor(low / kCell);
    const double count = std::floor(high / kCell) - first + 1.0;
    // After kLists cells the lists repeat.
    return {static_cast<int>(first - kLists * std::floor(first / kLists)),
            static_cast<int>(std::min<double>(count, kLists))};
}

} // namespace

template <typename Lists, typename Visit>
void BoxIndex::forEachList(Lists &lists, const Box &box, const Visit &visit)
{
    const Range columns = listsBetween(box.left, box.right);
    const Range rows = listsBetween(box.bottom, box.top);
    for (int i = 0; i < rows.count; ++i) {
        const std::size_t row = static_cast<std::size_t>((rows.first + i) % kLists) * kLists;
        for (int j = 0; j < columns.count; ++j)
            visit(lists[row + static_cast<std::size_t>((columns.first + j) % kLists)]);
    }
}

bool BoxIndex::isLarge(const Box &box)
{
    return listsBetween(box.left, box.right).count * listsBetween(box.bottom, box.top).count > kMaxLists;
}

void BoxIndex::append(const Box &box)
{
    const auto number = static_cast<std::uint32_t>(m_boxes.size());
    m_boxes.push_back(box);
    if (box.isEmpty())
        return;
    if (isLarge(box)) {
        m_large.push_back(number);
        return;
    }
    m_cells.resize(std::size_t{kLists} * kLists);
    forEachList(m_cells, box, [&](Numbers &numbers) { numbers.push_back(number); });
}

void BoxIndex::removeLast()
{
    const Box box = m_boxes.back();
    m_boxes.pop_back();
    // It has the largest number, so it is the last in each of its lists.
    if (box.isEmpty())
        return;
    if (isLarge(box))
        m_large.pop_back();
    else
        forEachList(m_cells, box, [](Numbers &numbers) { numbers.pop_back(); });
}

std::vector<std::uint32_t> BoxIndex::touching(const Box &area) const
{
    Numbers found;
    if (area.isEmpty())
        return found;
    const auto addFrom = [&](const Numbers &numbers) {
        for (const std::uint32_t number : numbers) {
            if (m_boxes[number].touches(area))
                found.push_back(number);
        }
    };
    addFrom(m_large);
    if (!m_cells.empty())
        forEachList(m_cells, area, addFrom);
    // A box in several cells was found in each of them.
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

} // namespace zeigewerk
