#include "drawing/fade.h"
#include "registered_test.h"

#include <QTest>

using zeigewerk::fadeAlpha;
using zeigewerk::Shape;
using zeigewerk::TimePoint;
using zeigewerk::WallClock;

class FadeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void opacityDependsOnTheAge_data();
    void opacityDependsOnTheAge();
    void opacityNeverRises();
};

namespace {

TimePoint afterSeconds(double seconds)
{
    return TimePoint(std::chrono::seconds(1'000'000)) +
           std::chrono::duration_cast<WallClock::duration>(std::chrono::duration<double>(seconds));
}

Shape createdAtZero()
{
    Shape shape;
    shape.created = afterSeconds(0.0);
    return shape;
}

} // namespace

void FadeTest::opacityDependsOnTheAge_data()
{
    QTest::addColumn<bool>("fading");
    QTest::addColumn<double>("age");
    QTest::addColumn<double>("opacity");
    QTest::newRow("fresh") << true << 0.0 << 1.0;
    QTest::newRow("end of the hold") << true << 3.999 << 1.0;
    QTest::newRow("start of the fade") << true << 4.0 << 1.0;
    QTest::newRow("a quarter faded") << true << 4.2 << 0.75;
    QTest::newRow("half faded") << true << 4.4 << 0.5;
    QTest::newRow("faded") << true << 4.8 << 0.0;
    QTest::newRow("faded long ago") << true << 1e6 << 0.0;
    QTest::newRow("clock set back") << true << -10.0 << 1.0;
    QTest::newRow("fading off") << false << 1e6 << 1.0;
}

void FadeTest::opacityDependsOnTheAge()
{
    QFETCH(const bool, fading);
    QFETCH(const double, age);
    QFETCH(const double, opacity);
    QVERIFY(std::abs(fadeAlpha(createdAtZero(), fading, afterSeconds(age)) - opacity) < 1e-6);
}

void FadeTest::opacityNeverRises()
{
    double last = 1.0;
    for (int step = 0; step < 200; ++step) {
        const double opacity = fadeAlpha(createdAtZero(), true, afterSeconds(3.9 + step / 128.0));
        QVERIFY(opacity <= last && opacity >= 0.0);
        // Linear: no step is larger than the time that passed allows.
        QVERIFY(last - opacity <= 1.0 / 128 / 0.8 + 1e-6);
        last = opacity;
    }
    QCOMPARE(last, 0.0);
}

REGISTER_APPLESS_TEST(FadeTest)
#include "fade_test.moc"
