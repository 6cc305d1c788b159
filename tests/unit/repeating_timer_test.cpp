#include "base/repeating_timer.h"
#include "registered_test.h"

#include <QTest>

using namespace zeigewerk;
using namespace std::chrono_literals;
using std::chrono::nanoseconds;
using std::chrono::steady_clock;

class RepeatingTimerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void deadlinesAreAbsoluteAndMissedOnesAreSkipped_data();
    void deadlinesAreAbsoluteAndMissedOnesAreSkipped();
    void itTicksRepeatedly();
    void aTickMayDestroyTheTimer();
};

void RepeatingTimerTest::deadlinesAreAbsoluteAndMissedOnesAreSkipped_data()
{
    QTest::addColumn<qint64>("now");
    QTest::addColumn<qint64>("expected");

    // Nanoseconds since the start, with a period of 1/60 s.
    const qint64 period = 16'666'666;
    QTest::newRow("at the start") << qint64(0) << period;
    QTest::newRow("just before the first") << period - 1 << period;
    QTest::newRow("on the first") << period << 2 * period;
    QTest::newRow("a late tick does not shift the next") << period + 9'000'000 << 2 * period;
    QTest::newRow("missed ones are skipped") << 10 * period + 5 << 11 * period;
    QTest::newRow("a clock before the start") << qint64(-7) << period;
}

void RepeatingTimerTest::deadlinesAreAbsoluteAndMissedOnesAreSkipped()
{
    QFETCH(qint64, now);
    QFETCH(qint64, expected);
    const steady_clock::time_point start(1h);
    QCOMPARE((nextDeadline(start, nanoseconds(1'000'000'000 / 60), start + nanoseconds(now)) - start).count(),
             expected);
}

void RepeatingTimerTest::itTicksRepeatedly()
{
    int ticks = 0;
    const RepeatingTimer timer(1ms, [&] { ++ticks; });
    QTRY_VERIFY(ticks >= 3);
}

void RepeatingTimerTest::aTickMayDestroyTheTimer()
{
    int ticks = 0;
    std::unique_ptr<RepeatingTimer> timer;
    timer = std::make_unique<RepeatingTimer>(1ms, [&] {
        ++ticks;
        timer.reset();
    });
    int later = 0;
    QTRY_COMPARE(ticks, 1);
    const RepeatingTimer other(1ms, [&] { ++later; });
    QTRY_VERIFY(later >= 5);
    QCOMPARE(ticks, 1);
}

REGISTER_TEST(RepeatingTimerTest)
#include "repeating_timer_test.moc"
