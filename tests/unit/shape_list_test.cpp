#include "drawing/render_shape.h"
#include "drawing/shape_list.h"
#include "random_input.h"
#include "registered_test.h"

#include <QTest>

namespace zeigewerk {

namespace {

Shape lineAt(QPointF start, int name)
{
    return {.tool = Tool::line,
            .points = {},
            .start = start,
            .end = start + QPointF(20, 10),
            .color = kOrange,
            .width = 5.0,
            .text = QString::number(name)};
}

QStringList namesNear(const ShapeList &list, const Box &area)
{
    QStringList names;
    list.forEachNear(area, [&](const Shape &shape) { names.append(shape.text); });
    return names;
}

/// The same by a linear search.
QStringList expectedNear(const ShapeList &list, const Box &area)
{
    QStringList names;
    for (const Shape &shape : list.shapes()) {
        if (paintedBounds(shape).touches(area))
            names.append(shape.text);
    }
    return names;
}

/// Removes some shapes anywhere, removes the last one, or appends one.
void change(ShapeList &list, test::RandomInput &random, int name)
{
    const auto coordinate = [&random] { return random.real(0.0, 1000.0); };
    const int chosen = random.integer(0, 30);
    if (chosen == 0)
        list.removeIf([&](const Shape &) { return random.chance(0.2); });
    else if (chosen <= 5 && !list.isEmpty())
        list.removeLast();
    else
        list.append(lineAt({coordinate(), coordinate()}, name));
}

} // namespace

class ShapeListTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itKeepsTheOrderOfItsShapes();
    void afterAnyChangeItFindsWhatALinearSearchFinds();
    void invisibleShapesAreKeptButNeverFound();
};

void ShapeListTest::itKeepsTheOrderOfItsShapes()
{
    ShapeList list;
    for (int i = 0; i < 100; ++i)
        list.append(lineAt({0, 0}, i));
    list.removeIf([](const Shape &shape) { return shape.text.toInt() % 2 == 1; });
    list.removeLast();
    QCOMPARE(list.shapes().size(), std::size_t{49});
    QStringList names;
    for (int i = 0; i < 98; i += 2)
        names.append(QString::number(i));
    QCOMPARE(namesNear(list, {0, 0, 10, 10}), names);
}

void ShapeListTest::afterAnyChangeItFindsWhatALinearSearchFinds()
{
    test::RandomInput random;
    const auto coordinate = [&random] { return random.real(-50.0, 1050.0); };
    ShapeList list;
    for (int i = 0; i < 3000; ++i) {
        change(list, random, i);
        const QPointF corner(coordinate(), coordinate());
        const Box area{corner.x(), corner.y(), corner.x() + 60.0, corner.y() + 60.0};
        QCOMPARE(namesNear(list, area), expectedNear(list, area));
    }
    list.clear();
    QVERIFY(list.isEmpty());
    QVERIFY(namesNear(list, {-1e9, -1e9, 1e9, 1e9}).isEmpty());
}

void ShapeListTest::invisibleShapesAreKeptButNeverFound()
{
    ShapeList list;
    QVERIFY(list.isEmpty());
    // An invisible shape is found nowhere.
    Shape invisible = lineAt({0, 0}, 1);
    invisible.width = 0.0;
    list.append(invisible);
    QVERIFY(namesNear(list, {-1e9, -1e9, 1e9, 1e9}).isEmpty());
    QCOMPARE(list.shapes().size(), std::size_t{1});
}

REGISTER_TEST(ShapeListTest)

} // namespace zeigewerk

#include "shape_list_test.moc"
