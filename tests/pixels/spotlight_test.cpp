#include "pixels/canvas.h"
#include "pixels/example_shapes.h"
#include "registered_test.h"

#include <QTest>

#include <cmath>
#include <limits>

namespace zeigewerk::test {

namespace {

const QColor kDim(0, 0, 0, 140);
/// White beneath black with an alpha of 0.55.
constexpr int kDimmedWhite = 115;

} // namespace

class SpotlightTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theSpotlightLeavesACircleClear_data();
    void theSpotlightLeavesACircleClear();
    void theSpotlightFollowsThePointer();
    void theSpotlightDimsOnlyTheDrawingsOutsideIt();
    void theWhiteboardOutsideTheSpotlightIsGrey();
    void aPointerOnAnotherScreenLeavesEverythingDimmed();
    void aHugeSpotlightLeavesEverythingClear_data();
    void aHugeSpotlightLeavesEverythingClear();
};

void SpotlightTest::theSpotlightLeavesACircleClear_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<double>("radius");
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        for (const double radius : {35.0, 90.0})
            QTest::addRow("radius %g at scale %g", radius, scale) << scale << radius;
    }
}

void SpotlightTest::theSpotlightLeavesACircleClear()
{
    QFETCH(const double, scale);
    QFETCH(const double, radius);
    Canvas canvas((QSizeF(400, 300) * scale).toSize(), scale, {.spotRadius = radius});
    const QPointF center(180, 140);
    canvas.desktop().setMouseLocation(center);
    canvas.app().toggleSpot();
    canvas.display();
    for (int degrees = 0; degrees < 360; degrees += 15) {
        const double angle = degrees * M_PI / 180.0;
        const QPointF direction(std::cos(angle), std::sin(angle));
        QCOMPARE(canvas.at(center + (radius - 1.5) * direction), kTransparent);
        QCOMPARE(canvas.at(center + (radius + 1.5) * direction), kDim);
    }
    QCOMPARE(canvas.at(center), kTransparent);
    QCOMPARE(canvas.at({0.1, 0.1}), kDim);
    QCOMPARE(canvas.at({399.9, 299.9}), kDim);
}

void SpotlightTest::theSpotlightFollowsThePointer()
{
    Canvas canvas(QSize(400, 300), 1.0, {.spotRadius = 35});
    canvas.desktop().setMouseLocation({100, 100});
    canvas.app().toggleSpot();
    canvas.display();
    canvas.movePointer({300, 200});
    canvas.display();
    QCOMPARE(canvas.at({100, 100}), kDim);
    QCOMPARE(canvas.at({300, 200}), kTransparent);
}

void SpotlightTest::theSpotlightDimsOnlyTheDrawingsOutsideIt()
{
    Canvas canvas(QSize(400, 300), 1.0, {.spotRadius = 35});
    canvas.desktop().setMouseLocation({200, 100});
    canvas.app().toggleSpot();
    canvas.app().toggleDraw();
    canvas.draw(thickLine({20, 100}, {380, 100}, kWhite));
    canvas.display();
    QCOMPARE(canvas.at({200, 100}), kBoard);
    QVERIFY(std::abs(canvas.at({100, 100}).red() - kDimmedWhite) <= 1);
    QCOMPARE(canvas.at({100, 100}).alpha(), 255);
}

void SpotlightTest::theWhiteboardOutsideTheSpotlightIsGrey()
{
    Canvas canvas;
    canvas.desktop().setMouseLocation({200, 150});
    canvas.app().toggleBoard();
    canvas.app().toggleSpot();
    canvas.display();
    QCOMPARE(canvas.at({200, 150}), kBoard);
    QCOMPARE(canvas.at({200 + 85, 150}), kBoard);
    QVERIFY(std::abs(canvas.at({200 + 95, 150}).red() - kDimmedWhite) <= 1);
    QCOMPARE(canvas.at({10, 10}).alpha(), 255);
}

void SpotlightTest::aPointerOnAnotherScreenLeavesEverythingDimmed()
{
    Canvas canvas;
    canvas.desktop().setMouseLocation({5000, 150});
    canvas.app().toggleSpot();
    canvas.display();
    QImage dim(canvas.image().size(), canvas.image().format());
    dim.fill(kDim);
    QCOMPARE(canvas.image(), dim);
    canvas.movePointer({6000, 100});
    QVERIFY(!canvas.display());
}

void SpotlightTest::aHugeSpotlightLeavesEverythingClear_data()
{
    QTest::addColumn<double>("radius");
    QTest::newRow("reaching every corner") << 600.0;
    QTest::newRow("huge") << 1e9;
    QTest::newRow("the largest number") << std::numeric_limits<double>::max();
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
}

void SpotlightTest::aHugeSpotlightLeavesEverythingClear()
{
    QFETCH(const double, radius);
    Canvas canvas(QSize(400, 300), 1.25, {.spotRadius = radius});
    canvas.app().toggleSpot();
    canvas.display();
    QVERIFY(isBlank(canvas.image()));
    canvas.movePointer({100, 100});
    canvas.display();
    QVERIFY(isBlank(canvas.image()));
}

REGISTER_TEST(SpotlightTest)

} // namespace zeigewerk::test

#include "spotlight_test.moc"
