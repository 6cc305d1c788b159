#include "drawing/box_index.h"
#include "random_input.h"
#include "registered_test.h"

#include <QTest>

#include <array>

namespace zeigewerk {

namespace {

/// Coordinates that often lie on the edge of a cell, or in cells that share a list.
double randomCoordinate(test::RandomInput &random)
{
    const double origin = 4096.0 * random.integer(-3, 3);
    return origin + (random.chance(0.3) ? 128.0 * random.integer(0, 3) : random.real(0.0, 400.0));
}

/// A box from the size of a point to larger than a desktop; sometimes empty.
Box randomBox(test::RandomInput &random)
{
    if (random.chance(0.02))
        return {};
    const double left = randomCoordinate(random);
    const double bottom = randomCoordinate(random);
    const double maxSize = random.oneOf(std::array{0.0, 20.0, 300.0, 2000.0, 10'000.0});
    return {left, bottom, left + random.real(0.0, maxSize), bottom + random.real(0.0, maxSize)};
}

std::vector<std::uint32_t> touchingByLinearSearch(const std::vector<Box> &boxes, const Box &area)
{
    std::vector<std::uint32_t> found;
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        if (boxes[i].touches(area))
            found.push_back(static_cast<std::uint32_t>(i));
    }
    return found;
}

} // namespace

class BoxIndexTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itFindsWhatALinearSearchFinds();
    void anEmptyBoxIsCountedButNeverFound();
    void nothingTouchesAnEmptyArea();
};

void BoxIndexTest::itFindsWhatALinearSearchFinds()
{
    test::RandomInput random;
    BoxIndex index;
    std::vector<Box> boxes;
    std::size_t found = 0;
    for (int i = 0; i < 5000; ++i) {
        // The index grows and shrinks in turn.
        const bool shrinks = random.chance(i / 1000 % 2 == 0 ? 0.2 : 0.6);
        if (shrinks && !boxes.empty()) {
            boxes.pop_back();
            index.removeLast();
        } else {
            boxes.push_back(randomBox(random));
            index.append(boxes.back());
        }
        QCOMPARE(index.size(), boxes.size());
        const Box area = randomBox(random);
        const auto expected = touchingByLinearSearch(boxes, area);
        QCOMPARE(index.touching(area), expected);
        found += expected.size();
    }
    QVERIFY(found > 5000);
}

void BoxIndexTest::anEmptyBoxIsCountedButNeverFound()
{
    BoxIndex index;
    index.append({});
    index.append({1.0, 1.0, 2.0, 2.0});
    index.append({});
    QCOMPARE(index.size(), std::size_t{3});
    QCOMPARE(index.touching({-1e6, -1e6, 1e6, 1e6}), std::vector<std::uint32_t>{1});
    index.removeLast();
    index.removeLast();
    index.removeLast();
    QVERIFY(index.touching({-1e6, -1e6, 1e6, 1e6}).empty());
}

void BoxIndexTest::nothingTouchesAnEmptyArea()
{
    BoxIndex index;
    index.append({1.0, 1.0, 2.0, 2.0});
    index.append({-1e6, -1e6, 1e6, 1e6});
    QVERIFY(index.touching({}).empty());
}

REGISTER_APPLESS_TEST(BoxIndexTest)

} // namespace zeigewerk

#include "box_index_test.moc"
