#include "platform/x11/input/scroll_axes.h"
#include "registered_test.h"

#include <QTest>

using namespace zeigewerk::platform::x11;

namespace {

constexpr std::uint16_t kMouse = 10;
constexpr std::uint16_t kTouchpad = 11;
constexpr ScrollAxis kAxisOfMouse = {.device = kMouse, .number = 3, .increment = 120.0, .value = 600.0};

} // namespace

class ScrollAxesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachListenerGetsEachStep();
    void readingAgainSkipsStepsOfThatListenerAlone();
    void aDeviceWithoutAnAxisDoesNotScroll();
    void theLatestReadingReplacesEarlierOnes();
    void theyAreStaleUntilTheyAreRead();
    void anAnswerIncludesEarlierEvents_data();
    void anAnswerIncludesEarlierEvents();
};

void ScrollAxesTest::eachListenerGetsEachStep()
{
    ScrollAxes surfaces;
    ScrollAxes monitor;
    surfaces.adopt({kAxisOfMouse}, 1);
    monitor.adopt({kAxisOfMouse}, 1);
    QCOMPARE(monitor.moveTo(kMouse, 480.0)->distance, 1.0);
    QCOMPARE(surfaces.moveTo(kMouse, 480.0)->distance, 1.0);
}

void ScrollAxesTest::readingAgainSkipsStepsOfThatListenerAlone()
{
    ScrollAxes surfaces;
    ScrollAxes monitor;
    surfaces.adopt({kAxisOfMouse}, 1);
    monitor.adopt({kAxisOfMouse}, 1);
    ScrollAxis moved = kAxisOfMouse;
    moved.value = 480.0;
    surfaces.adopt({moved}, 2);
    QVERIFY(!surfaces.moveTo(kMouse, 480.0));
    QCOMPARE(monitor.moveTo(kMouse, 480.0)->distance, 1.0);
    QVERIFY(surfaces.includes(1));
    QVERIFY(!monitor.includes(1));
}

void ScrollAxesTest::aDeviceWithoutAnAxisDoesNotScroll()
{
    ScrollAxes axes;
    QVERIFY(!axes.numberOf(kMouse));
    axes.adopt({kAxisOfMouse}, 1);
    QCOMPARE(axes.numberOf(kMouse), std::optional(kAxisOfMouse.number));
    QVERIFY(!axes.numberOf(kTouchpad));
    QVERIFY(!axes.moveTo(kTouchpad, 15.0));
}

void ScrollAxesTest::theLatestReadingReplacesEarlierOnes()
{
    ScrollAxes axes;
    axes.adopt({kAxisOfMouse}, 1);
    axes.adopt({{.device = kTouchpad, .number = 2, .increment = 15.0, .value = 0.0}}, 2);
    QVERIFY(!axes.numberOf(kMouse));
    QCOMPARE(axes.moveTo(kTouchpad, 4.5)->distance, -4.5);
}

void ScrollAxesTest::theyAreStaleUntilTheyAreRead()
{
    ScrollAxes axes;
    QVERIFY(axes.isStale());
    axes.adopt({kAxisOfMouse}, 1);
    QVERIFY(!axes.isStale());
    axes.invalidate();
    QVERIFY(axes.isStale());
}

void ScrollAxesTest::anAnswerIncludesEarlierEvents_data()
{
    QTest::addColumn<std::uint32_t>("request");
    QTest::addColumn<std::uint32_t>("event");
    QTest::addColumn<bool>("isIncluded");
    QTest::newRow("an event from before the request") << 100U << 99U << true;
    QTest::newRow("an event from after it") << 100U << 100U << false;
    QTest::newRow("an event from after a later request") << 100U << 101U << false;
    QTest::newRow("an event from before the numbers wrapped around") << 3U << 0xFFFFFFF0U << true;
    QTest::newRow("an event from after they wrapped around") << 0xFFFFFFF0U << 3U << false;
}

void ScrollAxesTest::anAnswerIncludesEarlierEvents()
{
    QFETCH(std::uint32_t, request);
    QFETCH(std::uint32_t, event);
    ScrollAxes axes;
    axes.adopt({kAxisOfMouse}, request);
    QTEST(axes.includes(event), "isIncluded");
}

REGISTER_APPLESS_TEST(ScrollAxesTest)
#include "scroll_axes_test.moc"
