#include "platform/damage.h"
#include "registered_test.h"

#include <QTest>

#include <cmath>
#include <limits>

using zeigewerk::platform::Damage;

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

double areaOf(const Damage &damage)
{
    double area = 0.0;
    for (const QRectF &rect : damage.rects())
        area += rect.width() * rect.height();
    return area;
}

} // namespace

class DamageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingIsDamagedAtFirst();
    void everythingTouchesEverything();
    void itKeepsTheExactRectangle();
    void anEmptyRectangleDamagesItsPoint();
    void rectanglesAreNormalized();
    void nonFiniteRectanglesDamageEverything_data();
    void nonFiniteRectanglesDamageEverything();
    void addingToEverythingChangesNothing();
    void damageCanBeAddedToDamage();
    void addingDamageToItselfChangesNothing();
    void touchesIncludesTheEdges_data();
    void touchesIncludesTheEdges();
    void aStrokeDamagesItsWholeLengthAndWidth_data();
    void aStrokeDamagesItsWholeLengthAndWidth();
    void aLongDiagonalDamagesLittleMoreThanItself();
    void anAlmostHorizontalLineIsOneRectangle();
    void shortSegmentsOfAStrokeShareRectangles();
    void itNeverExceedsItsMaximumOfRectangles();
};

void DamageTest::nothingIsDamagedAtFirst()
{
    const Damage damage;
    QVERIFY(damage.isEmpty());
    QVERIFY(!damage.isEverything());
    QVERIFY(!damage.touches(QRectF(-1e6, -1e6, 2e6, 2e6)));
}

void DamageTest::everythingTouchesEverything()
{
    const Damage damage = Damage::everything();
    QVERIFY(damage.isEverything());
    QVERIFY(!damage.isEmpty());
    QVERIFY(damage.touches(QRectF(1e6, 1e6, 0, 0)));
}

void DamageTest::itKeepsTheExactRectangle()
{
    const QRectF rect(1.25, -2.5, 3.75, 4.0);
    QCOMPARE(Damage::of(rect).rects(), std::vector<QRectF>{rect});
}

void DamageTest::anEmptyRectangleDamagesItsPoint()
{
    Damage damage;
    damage.add(QRectF(10, 20, 0, 0));
    QVERIFY(!damage.isEmpty());
    QVERIFY(damage.touches(QRectF(9, 19, 2, 2)));
    QVERIFY(!damage.touches(QRectF(11, 21, 2, 2)));
}

void DamageTest::rectanglesAreNormalized()
{
    QCOMPARE(Damage::of(QRectF(QPointF(5, 7), QPointF(1, 2))).rects(),
             std::vector<QRectF>{QRectF(1, 2, 4, 5)});
}

void DamageTest::nonFiniteRectanglesDamageEverything_data()
{
    QTest::addColumn<QRectF>("rect");
    QTest::newRow("x is not a number") << QRectF(kNotANumber, 0, 1, 1);
    QTest::newRow("y is not a number") << QRectF(0, kNotANumber, 1, 1);
    QTest::newRow("infinite x") << QRectF(-kInfinity, 0, 1, 1);
    QTest::newRow("infinite width") << QRectF(0, 0, kInfinity, 1);
    QTest::newRow("height is not a number") << QRectF(0, 0, 1, kNotANumber);
    QTest::newRow("right edge overflows") << QRectF(1e308, 0, 1e308, 1);
}

void DamageTest::nonFiniteRectanglesDamageEverything()
{
    QFETCH(const QRectF, rect);
    QVERIFY(Damage::of(rect).isEverything());
    Damage stroke;
    stroke.addStroke(rect.topLeft(), rect.bottomRight(), 2.0);
    QVERIFY(stroke.isEverything());
}

void DamageTest::addingToEverythingChangesNothing()
{
    Damage damage = Damage::of(QRectF(0, 0, 1, 1));
    damage.add(Damage::everything());
    damage.add(QRectF(5, 5, 1, 1));
    damage.addStroke({0, 0}, {9, 9}, 1.0);
    QVERIFY(damage.isEverything());
    QVERIFY(damage.rects().empty());
}

void DamageTest::damageCanBeAddedToDamage()
{
    Damage damage = Damage::of(QRectF(0, 0, 1, 1));
    damage.add(Damage::of(QRectF(50, 50, 1, 1)));
    damage.add(Damage());
    QCOMPARE(damage.rects(), (std::vector<QRectF>{QRectF(0, 0, 1, 1), QRectF(50, 50, 1, 1)}));
}

void DamageTest::addingDamageToItselfChangesNothing()
{
    Damage damage = Damage::of(QRectF(0, 0, 1, 1));
    damage.add(QRectF(50, 50, 1, 1));
    const std::vector<QRectF> before = damage.rects();
    damage.add(damage);
    QCOMPARE(damage.rects(), before);
}

void DamageTest::touchesIncludesTheEdges_data()
{
    QTest::addColumn<QRectF>("rect");
    QTest::addColumn<bool>("touches");
    // The damage is (10, 20) to (30, 60).
    QTest::newRow("inside") << QRectF(15, 25, 1, 1) << true;
    QTest::newRow("all around") << QRectF(0, 0, 100, 100) << true;
    QTest::newRow("right edge") << QRectF(30, 25, 5, 5) << true;
    QTest::newRow("left edge") << QRectF(5, 25, 5, 5) << true;
    QTest::newRow("lower edge") << QRectF(15, 10, 5, 10) << true;
    QTest::newRow("upper edge") << QRectF(15, 60, 5, 5) << true;
    QTest::newRow("corner point") << QRectF(30, 60, 0, 0) << true;
    QTest::newRow("not normalized") << QRectF(QPointF(16, 26), QPointF(15, 25)) << true;
    QTest::newRow("right of it") << QRectF(30.01, 25, 5, 5) << false;
    QTest::newRow("left of it") << QRectF(4.98, 25, 5, 5) << false;
    QTest::newRow("below it") << QRectF(15, 9.98, 5, 10) << false;
    QTest::newRow("above it") << QRectF(15, 60.01, 5, 5) << false;
}

void DamageTest::touchesIncludesTheEdges()
{
    QFETCH(const QRectF, rect);
    QFETCH(const bool, touches);
    QCOMPARE(Damage::of(QRectF(10, 20, 20, 40)).touches(rect), touches);
}

void DamageTest::aStrokeDamagesItsWholeLengthAndWidth_data()
{
    QTest::addColumn<QPointF>("from");
    QTest::addColumn<QPointF>("to");
    QTest::newRow("point") << QPointF(3, 4) << QPointF(3, 4);
    QTest::newRow("short") << QPointF(3, 4) << QPointF(5, 5);
    QTest::newRow("diagonal") << QPointF(0, 0) << QPointF(2000, 1000);
    QTest::newRow("steep, falling") << QPointF(10, 900) << QPointF(-300, -900);
    QTest::newRow("horizontal") << QPointF(100, 7) << QPointF(-100, 7);
    QTest::newRow("longer than any screen") << QPointF(-1e5, -1e5) << QPointF(1e5, 2e5);
}

void DamageTest::aStrokeDamagesItsWholeLengthAndWidth()
{
    QFETCH(const QPointF, from);
    QFETCH(const QPointF, to);
    constexpr double kHalfWidth = 4.5;
    Damage damage;
    damage.addStroke(from, to, kHalfWidth);
    for (int i = 0; i <= 1000; ++i) {
        const QPointF middle = from + (to - from) * (i / 1000.0);
        for (int degrees = 0; degrees < 360; degrees += 30) {
            const double angle = degrees * M_PI / 180.0;
            const QPointF edge = middle + 0.999 * kHalfWidth * QPointF(std::cos(angle), std::sin(angle));
            QVERIFY(damage.touches(QRectF(edge, QSizeF(0, 0))));
        }
    }
}

void DamageTest::aLongDiagonalDamagesLittleMoreThanItself()
{
    Damage damage;
    damage.addStroke({0, 0}, {2000, 1500}, 2.5);
    // The area of its bounding rectangle is three million, that of the stroke 12,500.
    QVERIFY(areaOf(damage) < 150'000.0);
    QVERIFY(!damage.touches(QRectF(1500, 500, 100, 100)));
}

void DamageTest::anAlmostHorizontalLineIsOneRectangle()
{
    Damage damage;
    damage.addStroke({0, 50}, {3000, 55}, 2.5);
    QCOMPARE(damage.rects(), std::vector<QRectF>{QRectF(-2.5, 47.5, 3005, 10)});
}

void DamageTest::shortSegmentsOfAStrokeShareRectangles()
{
    Damage damage;
    for (int i = 0; i < 1000; ++i)
        damage.addStroke(QPointF(i, i), QPointF(i + 1, i + 1), 2.5);
    QVERIFY2(damage.rects().size() <= 40, QByteArray::number(damage.rects().size()));
    QVERIFY(areaOf(damage) < 60'000.0);
}

void DamageTest::itNeverExceedsItsMaximumOfRectangles()
{
    Damage damage;
    std::vector<QRectF> added;
    for (int i = 0; i < 5000; ++i) {
        added.emplace_back((i * 7919) % 4000, (i * 104729) % 2000, 3, 2);
        damage.add(added.back());
        QVERIFY(damage.rects().size() <= Damage::kMaxRects);
    }
    for (const QRectF &rect : added)
        QVERIFY(damage.touches(rect));
}

REGISTER_APPLESS_TEST(DamageTest)
#include "damage_test.moc"
