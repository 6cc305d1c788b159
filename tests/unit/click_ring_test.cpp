#include "clicks/click_ring.h"
#include "platform/levels.h"
#include "recording/recording_desktop.h"
#include "registered_test.h"

#include <QTest>

#include <cmath>

using namespace zeigewerk;
using platform::RecordingSurface;
using platform::SurfaceRole;

class ClickRingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itFollowsTheEaseOutCurve_data();
    void itFollowsTheEaseOutCurve();
    void itsSurfaceIsCentredOnTheClick_data();
    void itsSurfaceIsCentredOnTheClick();
    void itIsAboveAllOtherWindowsOfTheProgram();
    void itGrowsAndFades_data();
    void itGrowsAndFades();
    void itIsNotClippedAtItsLargest();
    void itsCentreIsTransparent();
    void aTranslucentColourStaysTranslucent();
    void aStepRepaintsOnlyTheRing();
    void eachRingEndsAfterItsOwnDuration();
    void theTimerRunsOnlyWhileThereAreRings();
    void settingTheClockBackEndsTheRing();
    void droppingRemovesTheRingsOfOneDesktop();
};

namespace {

using Seconds = std::chrono::duration<double>;

/// A desktop with one screen, and a clock that only the test advances.
struct RingDesktop
{
    explicit RingDesktop(double scale = 1.0)
        : desktop({{.name = "A", .nativeFrame = {0, 0, 1000, 800}, .scale = scale, .frame = {}}})
    {
    }
    ~RingDesktop() { ClickRing::dropAll(desktop); }

    void show(QPointF at = {100, 100}, const Color &color = kOrange)
    {
        ClickRing::show(desktop, at, color, [this] { return now; });
    }
    void passTime(double seconds)
    {
        now += std::chrono::duration_cast<WallClock::duration>(Seconds(seconds));
        ClickRing::step();
    }
    std::vector<RecordingSurface *> surfaces() const { return desktop.surfaces(SurfaceRole::Effect); }
    /// The oldest ring's picture.
    QImage picture() const
    {
        surfaces().front()->display();
        return surfaces().front()->image();
    }

    platform::RecordingDesktop desktop;
    TimePoint now = TimePoint(std::chrono::seconds(1'700'000'000));
};

/// Fine enough for the thinnest ring to cover whole pixels.
constexpr double kFineScale = 4.0;

/// The alpha (0 to 255) at that distance from the ring's centre, in points, in that direction.
int alphaAt(const QImage &picture, double radius, double degrees)
{
    const double angle = degrees * M_PI / 180.0;
    const QPointF place = QPointF(36 + radius * std::cos(angle), 36 + radius * std::sin(angle)) * kFineScale;
    return qAlpha(
        picture.pixel(static_cast<int>(std::floor(place.x())), static_cast<int>(std::floor(place.y()))));
}

} // namespace

void ClickRingTest::itFollowsTheEaseOutCurve_data()
{
    QTest::addColumn<double>("progress");
    QTest::addColumn<double>("eased");
    // Points of the cubic Bezier curve (0, 0), (0, 0), (0.58, 1), (1, 1) at these values of its parameter.
    QTest::newRow("0") << 0.0 << 0.0;
    QTest::newRow("1/4") << 0.0971875 << 0.15625;
    QTest::newRow("1/2") << 0.3425 << 0.5;
    QTest::newRow("3/4") << 0.6665625 << 0.84375;
    QTest::newRow("1") << 1.0 << 1.0;
}

void ClickRingTest::itFollowsTheEaseOutCurve()
{
    QFETCH(double, progress);
    QFETCH(double, eased);
    const RingPhase phase = RingPhase::at(progress);
    // Qt approximates the curve; the error moves the ring by 0.03 points at most.
    constexpr double kTolerance = 1e-3;
    QVERIFY2(std::abs(phase.scale - (0.35 + 0.8 * eased)) < kTolerance,
             qPrintable(QString::number(phase.scale)));
    QVERIFY2(std::abs(phase.opacity - 0.9 * (1 - eased)) < kTolerance,
             qPrintable(QString::number(phase.opacity)));
}

void ClickRingTest::itsSurfaceIsCentredOnTheClick_data()
{
    QTest::addColumn<QPointF>("at");
    QTest::addColumn<QRectF>("frame");
    QTest::newRow("on the screen") << QPointF(500, 400) << QRectF(464, 364, 72, 72);
    QTest::newRow("between the pixels") << QPointF(500.5, 400.5) << QRectF(464.5, 364.5, 72, 72);
    QTest::newRow("at the left edge") << QPointF(10, 400) << QRectF(-26, 364, 72, 72);
    QTest::newRow("at the lower right corner") << QPointF(990, 10) << QRectF(954, -26, 72, 72);
    QTest::newRow("at the upper edge") << QPointF(500, 790) << QRectF(464, 754, 72, 72);
}

void ClickRingTest::itsSurfaceIsCentredOnTheClick()
{
    QFETCH(QPointF, at);
    QFETCH(QRectF, frame);
    RingDesktop rings;
    rings.show(at);
    QCOMPARE(rings.surfaces().size(), std::size_t(1));
    QCOMPARE(rings.surfaces().front()->frame(), frame);
    QCOMPARE(rings.picture().size(), QSize(72, 72));
    rings.passTime(0.2);
    QCOMPARE(rings.surfaces().front()->frame(), frame);
}

void ClickRingTest::itIsAboveAllOtherWindowsOfTheProgram()
{
    RingDesktop rings;
    rings.show();
    const RecordingSurface &surface = *rings.surfaces().front();
    QVERIFY(surface.isVisible());
    QVERIFY(surface.ignoresMouseEvents());
    QCOMPARE(platform::levelOf(SurfaceRole::Effect), 1002);
    QVERIFY(platform::Levels::effects > platform::Levels::toolbar);
    QVERIFY(platform::Levels::effects > platform::Levels::overlay);
    // It does not take the keyboard.
    QVERIFY(rings.desktop.takeLog().filter("make key").isEmpty());
}

void ClickRingTest::itGrowsAndFades_data()
{
    QTest::addColumn<double>("age");
    for (const double age : {0.0, 0.05, 0.1, 0.2, 0.3, 0.4})
        QTest::addRow("after %g s", age) << age;
}

void ClickRingTest::itGrowsAndFades()
{
    QFETCH(double, age);
    RingDesktop rings(kFineScale);
    rings.show();
    rings.passTime(age);
    const QImage picture = rings.picture();
    const RingPhase phase = RingPhase::at(age / 0.45);
    const double radius = 28 * phase.scale;
    // Half the line width, and the pixel in which it ends.
    const double reach = 2 * phase.scale + 1.5 / kFineScale;
    for (int degrees = 0; degrees < 360; degrees += 15) {
        const int onLine = alphaAt(picture, radius, degrees);
        QVERIFY2(std::abs(onLine - 255 * phase.opacity) <= 2, qPrintable(QString::number(onLine)));
        QCOMPARE(alphaAt(picture, radius + reach, degrees), 0);
        QCOMPARE(alphaAt(picture, radius - reach, degrees), 0);
    }
}

void ClickRingTest::itIsNotClippedAtItsLargest()
{
    RingDesktop rings;
    rings.show();
    rings.passTime(0.4499);
    const QImage picture = rings.picture();
    const QRect inside(1, 1, 70, 70);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            QVERIFY(inside.contains(x, y) || qAlpha(picture.pixel(x, y)) == 0);
    }
}

void ClickRingTest::itsCentreIsTransparent()
{
    RingDesktop rings;
    rings.show();
    QCOMPARE(rings.picture().pixel(36, 36), qRgba(0, 0, 0, 0));
    rings.passTime(0.2);
    QCOMPARE(rings.picture().pixel(36, 36), qRgba(0, 0, 0, 0));
}

void ClickRingTest::aTranslucentColourStaysTranslucent()
{
    RingDesktop rings(kFineScale);
    rings.show({50, 50}, kWhite.withAlpha(0.5));
    const QImage picture = rings.picture();
    const int onLine = alphaAt(picture, 28 * 0.35, 0);
    QVERIFY2(std::abs(onLine - 255 * 0.45) <= 2, qPrintable(QString::number(onLine)));
}

void ClickRingTest::aStepRepaintsOnlyTheRing()
{
    RingDesktop rings;
    rings.show();
    RecordingSurface &surface = *rings.surfaces().front();
    surface.display();
    for (int i = 0; i < 5; ++i) {
        const qint64 before = surface.paintedPixels();
        rings.passTime(0.04);
        surface.display();
        // The diameter with the line, and the pixels at both ends that antialiasing may touch.
        const double side = 60 * RingPhase::at(0.04 * (i + 1) / 0.45).scale + 4;
        const qint64 painted = surface.paintedPixels() - before;
        QVERIFY(painted > 0);
        QVERIFY(static_cast<double>(painted) <= side * side);
    }
}

void ClickRingTest::eachRingEndsAfterItsOwnDuration()
{
    RingDesktop rings;
    rings.show({100, 100});
    rings.passTime(0.1);
    rings.show({200, 100});
    rings.show({300, 100});
    QCOMPARE(ClickRing::live.rings.size(), std::size_t(3));
    rings.passTime(0.34);
    QCOMPARE(rings.surfaces().size(), std::size_t(3));
    rings.passTime(0.02);
    // The first is 0.46 s old, the others 0.36 s.
    QCOMPARE(ClickRing::live.rings.size(), std::size_t(2));
    QCOMPARE(rings.surfaces().size(), std::size_t(2));
    QCOMPARE(rings.surfaces().at(0)->frame().center(), QPointF(200, 100));
    QCOMPARE(rings.surfaces().at(1)->frame().center(), QPointF(300, 100));
    QCOMPARE(rings.desktop.takeLog().filter("order out"), QStringList("effect 0: order out"));
    rings.passTime(0.1);
    QVERIFY(ClickRing::live.rings.empty());
    QVERIFY(rings.surfaces().empty());
}

void ClickRingTest::theTimerRunsOnlyWhileThereAreRings()
{
    RingDesktop rings;
    QVERIFY(!ClickRing::live.timer);
    rings.show();
    QVERIFY(ClickRing::live.timer);
    RecordingSurface &surface = *rings.surfaces().front();
    QVERIFY(surface.display());
    QCOMPARE(surface.paintedPixels(), qint64(72 * 72));
    // Its ticks repaint the ring.
    const auto isRepainted = [&] {
        surface.display();
        return surface.paintedPixels() > qint64(72 * 72);
    };
    QTRY_VERIFY(isRepainted());
    rings.now += std::chrono::seconds(1);
    QTRY_VERIFY(ClickRing::live.rings.empty());
    QVERIFY(!ClickRing::live.timer);
}

void ClickRingTest::settingTheClockBackEndsTheRing()
{
    RingDesktop rings;
    rings.show();
    rings.passTime(-3600);
    QVERIFY(ClickRing::live.rings.empty());
    QVERIFY(!ClickRing::live.timer);
}

void ClickRingTest::droppingRemovesTheRingsOfOneDesktop()
{
    RingDesktop one;
    RingDesktop other;
    one.show();
    other.show();
    one.show();
    ClickRing::dropAll(one.desktop);
    QVERIFY(one.surfaces().empty());
    QCOMPARE(other.surfaces().size(), std::size_t(1));
    QCOMPARE(ClickRing::live.rings.size(), std::size_t(1));
    QVERIFY(ClickRing::live.timer);
    ClickRing::dropAll(other.desktop);
    QVERIFY(!ClickRing::live.timer);
}

REGISTER_TEST(ClickRingTest)
#include "click_ring_test.moc"
