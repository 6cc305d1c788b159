#include "platform/x11/input/scroll_valuator.h"
#include "registered_test.h"

#include <QTest>

#include <cmath>
#include <limits>

using zeigewerk::platform::ScrollEvent;
using zeigewerk::platform::x11::ScrollValuator;

class ScrollValuatorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aStepIsInNotchesOrPoints_data();
    void aStepIsInNotchesOrPoints();
    void zeroAndInvalidStepsDoNotScroll_data();
    void zeroAndInvalidStepsDoNotScroll();
    void theFirstValueIsNotAStep();
    void eachStepCountsFromThePreviousValue();
    void fractionsOfANotchAddUp();
};

void ScrollValuatorTest::aStepIsInNotchesOrPoints_data()
{
    QTest::addColumn<double>("increment");
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("to");
    QTest::addColumn<double>("distance");
    QTest::addColumn<bool>("isPrecise");

    // Growing values mean downwards, so the distance is negative.
    const auto row = [](const char *name, double increment, double from, double to, double distance,
                        bool isPrecise) {
        QTest::newRow(name) << increment << from << to << distance << isPrecise;
    };
    // A table, one row per line.
    // clang-format off
    row("a notch down",                          15.0,  0.0,     15.0,                -1.0,  false);
    row("a notch up",                            15.0,  0.0,     -15.0,               1.0,   false);
    row("several notches",                       15.0,  300.0,   255.0,               3.0,   false);
    row("a device with 120 units per notch",    120.0, -120.0,  0.0,                 -1.0,  false);
    row("a device that counts notches",          1.0,   7.0,     8.0,                 -1.0,  false);
    row("an axis that grows upwards",            -15.0, 0.0,     15.0,                1.0,   false);
    row("a notch that was rounded",              120.0, 1e6 / 3, 1e6 / 3 - 120.00001, 1.0,   false);
    row("fingers down",                          15.0,  0.0,     4.5,                 -4.5,  true);
    row("fingers up",                            15.0,  100.0,   90.0,                10.0,  true);
    row("fingers over more than a notch",        15.0,  0.0,     20.0,                -20.0, true);
    row("a quarter of a notch",                120.0, 0.0,     30.0,                -3.75, true);
    row("fingers on an axis that grows upwards", -15.0, 0.0,     3.0,                 3.0,   true);
    // clang-format on
}

void ScrollValuatorTest::aStepIsInNotchesOrPoints()
{
    QFETCH(double, increment);
    QFETCH(double, from);
    QFETCH(double, to);
    ScrollValuator valuator(increment, from);
    const std::optional<ScrollEvent> scroll = valuator.moveTo(to);
    QVERIFY(scroll);
    QTEST(scroll->distance, "distance");
    QTEST(scroll->isPrecise, "isPrecise");
}

void ScrollValuatorTest::zeroAndInvalidStepsDoNotScroll_data()
{
    QTest::addColumn<double>("increment");
    QTest::addColumn<double>("to");
    const double nan = std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("the same value again") << 15.0 << 30.0;
    QTest::newRow("a difference that is only rounding") << 15.0 << 30.000001;
    QTest::newRow("a device without an increment") << 0.0 << 45.0;
    QTest::newRow("a device without an increment or movement") << 0.0 << 30.0;
    QTest::newRow("an increment that is not a number") << nan << 45.0;
    QTest::newRow("a value that is not a number") << 15.0 << nan;
}

void ScrollValuatorTest::zeroAndInvalidStepsDoNotScroll()
{
    QFETCH(double, increment);
    QFETCH(double, to);
    ScrollValuator valuator(increment, 30.0);
    QVERIFY(!valuator.moveTo(to));
}

void ScrollValuatorTest::theFirstValueIsNotAStep()
{
    ScrollValuator valuator(15.0);
    QVERIFY(!valuator.moveTo(4500.0));
    QCOMPARE(valuator.moveTo(4485.0)->distance, 1.0);
}

void ScrollValuatorTest::eachStepCountsFromThePreviousValue()
{
    ScrollValuator valuator(15.0, 0.0);
    QCOMPARE(valuator.moveTo(15.0)->distance, -1.0);
    QCOMPARE(valuator.moveTo(45.0)->distance, -2.0);
    QVERIFY(!valuator.moveTo(45.0));
    QCOMPARE(valuator.moveTo(44.0)->distance, 1.0);
    QCOMPARE(valuator.moveTo(29.0)->distance, 1.0);
}

void ScrollValuatorTest::fractionsOfANotchAddUp()
{
    ScrollValuator valuator(120.0, 0.0);
    double points = 0.0;
    for (int step = 1; step <= 120; ++step)
        points += valuator.moveTo(-step)->distance;
    QVERIFY(std::abs(points - 15.0) < 1e-9);
}

REGISTER_APPLESS_TEST(ScrollValuatorTest)
#include "scroll_valuator_test.moc"
