#include "platform/geometry.h"
#include "registered_test.h"

#include <QTest>

#include <cmath>
#include <limits>
#include <random>

using namespace zeigewerk::platform;

class ViewGeometryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void viewPointsConvertToPixelsAndBack_data();
    void viewPointsConvertToPixelsAndBack();
    void damageCoversWholePixelsAndAMarginOfOne();
    void damageBeyondTheSurfaceIsClipped_data();
    void damageBeyondTheSurfaceIsClipped();
    void thePainterTransformMapsLikeToPixels();
};

void ViewGeometryTest::viewPointsConvertToPixelsAndBack_data()
{
    QTest::addColumn<double>("scale");
    for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0})
        QTest::addRow("scale %g", scale) << scale;
}

void ViewGeometryTest::viewPointsConvertToPixelsAndBack()
{
    QFETCH(double, scale);
    const ViewGeometry geometry(QSize(1366, 768), scale);
    std::mt19937 random(1);
    std::uniform_real_distribution<double> coordinate(-2000, 2000);
    for (int i = 0; i < 1000; ++i) {
        const QPointF point(coordinate(random), coordinate(random));
        const QPointF back = geometry.toView(geometry.toPixels(point));
        QVERIFY(std::hypot(back.x() - point.x(), back.y() - point.y()) < 1e-9);
    }
    QCOMPARE(geometry.toPixels({0, 0}), QPointF(0, 768));
    QCOMPARE(geometry.toView(QPointF(0, 0)), QPointF(0, 768 / scale));
}

void ViewGeometryTest::damageCoversWholePixelsAndAMarginOfOne()
{
    const ViewGeometry single(QSize(1000, 800), 1);
    QCOMPARE(single.damagedPixels({10, 20, 30, 40}), QRect(9, 739, 32, 42));
    QCOMPARE(single.damagedPixels({10.2, 20.7, 0.1, 0.1}), QRect(9, 778, 3, 3));
    const ViewGeometry doubled(QSize(1000, 800), 2);
    QCOMPARE(doubled.damagedPixels({10, 20, 30, 40}), QRect(19, 679, 62, 82));
    const QRect pixels(100, 50, 20, 10);
    QVERIFY(doubled.damagedPixels(doubled.toView(pixels)).contains(pixels));
}

void ViewGeometryTest::damageBeyondTheSurfaceIsClipped_data()
{
    QTest::addColumn<QRectF>("damage");
    QTest::addColumn<QRect>("expected");

    const double infinity = std::numeric_limits<double>::infinity();
    QTest::newRow("left of it") << QRectF(-500, 10, 100, 100) << QRect();
    QTest::newRow("far away") << QRectF(1e12, 1e12, 10, 10) << QRect();
    QTest::newRow("huge") << QRectF(-1e12, -1e12, 2e12, 2e12) << QRect(0, 0, 1000, 800);
    QTest::newRow("over a corner") << QRectF(-10, -10, 20, 20) << QRect(0, 789, 11, 11);
    QTest::newRow("infinite") << QRectF(0, 0, infinity, infinity) << QRect(0, 0, 1000, 800);
}

void ViewGeometryTest::damageBeyondTheSurfaceIsClipped()
{
    QFETCH(QRectF, damage);
    QFETCH(QRect, expected);
    const QRect pixels = ViewGeometry(QSize(1000, 800), 1).damagedPixels(damage);
    if (expected.isEmpty())
        QVERIFY(pixels.isEmpty());
    else
        QCOMPARE(pixels, expected);
}

void ViewGeometryTest::thePainterTransformMapsLikeToPixels()
{
    const ViewGeometry geometry(QSize(640, 480), 1.25);
    for (const QPointF point : {QPointF(0, 0), QPointF(100, 50), QPointF(512, 384)})
        QCOMPARE(geometry.painterTransform().map(point), geometry.toPixels(point));
}

REGISTER_APPLESS_TEST(ViewGeometryTest)
#include "view_geometry_test.moc"
