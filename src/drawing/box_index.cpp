#include "drawing/box_index.h"

#include <algorithm>
#include <cmath>

namespace zeigewerk {

namespace {

/// The side of a cell, in the boxes' unit. Smaller ones would be filled with one stroke over and over.
constexpr double kCell = 128.0;
/// Lists along each side: 4096 points until the first shares its list.
constexpr int kLists = 32;
/// A box in more lists than this is large.
constexpr int kMostLists = 64;

/// Lists along one side: those of the cells between two coordinates.
struct Range
{
    int first;
    int count;
};

Range listsBetween(double low, double high)
{
    const double first = std::floor(low / kCell);
    const double count = std::floor(high / kCell) - first + 1.0;
    // After so many every list has had its turn.
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
    return listsBetween(box.left, box.right).count * listsBetween(box.bottom, box.top).count > kMostLists;
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
    // Having the largest number, it is the last wherever it is.
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
    // One that lies in several cells was found in each.
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

} // namespace zeigewerk
