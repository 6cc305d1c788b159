#include "clicks/click_ring.h"
#include "controller_fixture.h"
#include "registered_test.h"

#include <QTest>

using namespace zeigewerk;
using platform::Modifier;
using platform::Modifiers;
using platform::Monitored;
using platform::MonitoredEvents;
using platform::MonitoredScroll;
using platform::RecordingEventMonitor;
using platform::SurfaceRole;
using test::Controller;

class EventMonitorsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itListensOnlyForWhatIsNeeded_data();
    void itListensOnlyForWhatIsNeeded();
    void withoutTheModeAPressShowsNoRing();
    void aPressShowsARingAtThePointer();
    void aRingKeepsTheColourOfItsClick();
    void twoQuickPressesShowTwoRings();
    void aRingOutlivesItsMode();
    void altAndTheWheelElsewhereChangeTheRadius_data();
    void altAndTheWheelElsewhereChangeTheRadius();
    void theRadiusSurvivesARestart();
    void theRingsAreRemovedWithTheController();
    void eventsAfterTheControllerIsGoneDoNothing();
};

namespace {

MonitoredScroll altNotches(double count)
{
    return {.event = {.distance = count, .isPrecise = false, .modifiers = Modifier::Alt},
            .isOverOurs = false};
}

std::vector<platform::RecordingSurface *> effects(const Controller &controller)
{
    return controller.desktop.surfaces(SurfaceRole::Effect);
}

/// What a controller runs in, and what outlives it.
struct Environment
{
    platform::RecordingDesktop desktop;
    QTemporaryDir home;
    UserDefaults defaults{home.filePath("settings.ini")};

    std::unique_ptr<AppDelegate> launch()
    {
        auto app = std::make_unique<AppDelegate>(desktop, defaults);
        app->applicationDidFinishLaunching();
        return app;
    }
};

} // namespace

Q_DECLARE_METATYPE(zeigewerk::platform::MonitoredEvents)
Q_DECLARE_METATYPE(zeigewerk::platform::Modifiers)

void EventMonitorsTest::itListensOnlyForWhatIsNeeded_data()
{
    QTest::addColumn<QString>("operations");
    QTest::addColumn<MonitoredEvents>("expected");

    const auto row = [](const char *name, const char *operations, MonitoredEvents expected) {
        QTest::newRow(name) << QString(operations) << expected;
    };
    row("at the start", "", {});
    row("clicks", "k", Monitored::LeftPresses);
    row("clicks on and off", "kk", {});
    row("spotlight", "s", Monitored::WheelWithAlt);
    row("spotlight on and off", "ss", {});
    row("both", "ks", Monitored::LeftPresses | Monitored::WheelWithAlt);
    row("Esc ends the spotlight, not the clicks", "kse", Monitored::LeftPresses);
    row("every other mode", "dwprf", {});
}

void EventMonitorsTest::itListensOnlyForWhatIsNeeded()
{
    QFETCH(QString, operations);
    QFETCH(MonitoredEvents, expected);
    Controller controller;
    controller.perform(operations);
    QCOMPARE(controller.desktop.eventMonitor().listening(), expected);
}

void EventMonitorsTest::withoutTheModeAPressShowsNoRing()
{
    Controller controller;
    controller.perform("dks");
    controller.perform("k");
    controller.desktop.takeLog();
    controller.desktop.eventMonitor().pressLeft();
    controller.desktop.eventMonitor().pressLeftLate();
    QVERIFY(effects(controller).empty());
    QCOMPARE(controller.desktop.takeLog(), QStringList());
    QVERIFY(ClickRing::live.rings.empty());
}

void EventMonitorsTest::aPressShowsARingAtThePointer()
{
    Controller controller(test::twoScreens());
    controller.perform("k");
    // On the other screen, while no canvas is shown.
    controller.desktop.setMouseLocation({1700, 300});
    controller.desktop.eventMonitor().pressLeft();
    QCOMPARE(effects(controller).size(), std::size_t(1));
    QCOMPARE(effects(controller).front()->frame(), QRectF(1664, 264, 72, 72));
    QVERIFY(effects(controller).front()->isVisible());
    QVERIFY(effects(controller).front()->ignoresMouseEvents());
    // It stays where the click was.
    controller.desktop.setMouseLocation({100, 100});
    ClickRing::step();
    QCOMPARE(effects(controller).front()->frame(), QRectF(1664, 264, 72, 72));
}

void EventMonitorsTest::aRingKeepsTheColourOfItsClick()
{
    Controller controller;
    controller.perform("k");
    controller.app().setColor(Color::hex(0x0A84FF));
    controller.desktop.eventMonitor().pressLeft();
    controller.app().setColor(Color::hex(0xFF3B30));
    controller.passTime(0.2);
    ClickRing::step();
    platform::RecordingSurface &surface = *effects(controller).front();
    surface.display();
    int painted = 0;
    for (int y = 0; y < surface.image().height(); ++y) {
        for (int x = 0; x < surface.image().width(); ++x) {
            const QColor seen = surface.image().pixelColor(x, y);
            // The fainter a pixel, the coarser its colour.
            if (seen.alpha() < 40)
                continue;
            ++painted;
            QVERIFY2(std::abs(seen.red() - 0x0A) <= 6 && std::abs(seen.green() - 0x84) <= 6 &&
                         std::abs(seen.blue() - 0xFF) <= 6,
                     qPrintable(seen.name()));
        }
    }
    QVERIFY(painted > 100);
}

void EventMonitorsTest::twoQuickPressesShowTwoRings()
{
    Controller controller;
    controller.perform("k");
    controller.desktop.eventMonitor().pressLeft();
    controller.passTime(0.2);
    controller.desktop.eventMonitor().pressLeft();
    QCOMPARE(effects(controller).size(), std::size_t(2));
    controller.passTime(0.251);
    ClickRing::step();
    QCOMPARE(effects(controller).size(), std::size_t(1));
    controller.passTime(0.2);
    ClickRing::step();
    QVERIFY(effects(controller).empty());
    QVERIFY(ClickRing::live.rings.empty());
}

void EventMonitorsTest::aRingOutlivesItsMode()
{
    Controller controller;
    controller.perform("k");
    controller.desktop.eventMonitor().pressLeft();
    controller.perform("k");
    QCOMPARE(effects(controller).size(), std::size_t(1));
    // Its own timer ends it.
    controller.passTime(0.46);
    QTRY_VERIFY(effects(controller).empty());
}

void EventMonitorsTest::altAndTheWheelElsewhereChangeTheRadius_data()
{
    QTest::addColumn<QString>("operations");
    QTest::addColumn<double>("before");
    QTest::addColumn<double>("distance");
    QTest::addColumn<bool>("isPrecise");
    QTest::addColumn<Modifiers>("modifiers");
    QTest::addColumn<bool>("isOverOurs");
    QTest::addColumn<double>("after");

    struct Row
    {
        const char *name;
        const char *operations = "s";
        double before = 90.0;
        double distance = 1.0;
        bool isPrecise = false;
        Modifiers modifiers = Modifier::Alt;
        bool isOverOurs = false;
        double after = 90.0;
    };
    const Modifiers altAndShift = Modifier::Alt | Modifier::Shift;
    const std::array rows = {
        Row{.name = "a notch up", .distance = 1.0, .after = 98.0},
        Row{.name = "a notch down", .distance = -1.0, .after = 82.0},
        Row{.name = "fingers up", .distance = 10.0, .isPrecise = true, .after = 102.0},
        Row{.name = "fingers down", .distance = -10.0, .isPrecise = true, .after = 78.0},
        Row{.name = "to the largest", .before = 398.0, .distance = 1.0, .after = 400.0},
        Row{.name = "to the smallest", .before = 36.0, .distance = -1.0, .after = 35.0},
        Row{.name = "more than Alt", .modifiers = altAndShift, .after = 98.0},
        Row{.name = "without Alt", .modifiers = {}},
        Row{.name = "another modifier", .modifiers = Modifier::Ctrl},
        Row{.name = "over a window of ours", .isOverOurs = true},
        Row{.name = "over a canvas that takes the pointer", .operations = "sd", .isOverOurs = true},
        Row{.name = "without the spotlight", .operations = "k"},
        Row{.name = "after Esc", .operations = "se"},
    };
    for (const Row &row : rows)
        QTest::newRow(row.name) << QString(row.operations) << row.before << row.distance << row.isPrecise
                                << row.modifiers << row.isOverOurs << row.after;
}

void EventMonitorsTest::altAndTheWheelElsewhereChangeTheRadius()
{
    QFETCH(QString, operations);
    QFETCH(double, before);
    QFETCH(double, distance);
    QFETCH(bool, isPrecise);
    QFETCH(Modifiers, modifiers);
    QFETCH(bool, isOverOurs);
    QFETCH(double, after);
    Controller controller;
    controller.defaults.setDouble(kSpotRadiusKey, before);
    controller.perform(operations);
    const RecordingEventMonitor &monitor = controller.desktop.eventMonitor();
    // Delivered even if the monitor no longer listens, like an event on its way when the mode ended.
    monitor.scrollLate({.event = {.distance = distance, .isPrecise = isPrecise, .modifiers = modifiers},
                        .isOverOurs = isOverOurs});
    QCOMPARE(controller.app().spotRadius(), after);
    QCOMPARE(controller.defaults.doubleForKey(kSpotRadiusKey), std::optional(after));
}

void EventMonitorsTest::theRadiusSurvivesARestart()
{
    Controller controller;
    controller.perform("s");
    controller.desktop.eventMonitor().scroll(altNotches(2));
    controller.desktop.eventMonitor().scroll(altNotches(1));
    const AppDelegate next(controller.desktop, controller.defaults);
    QCOMPARE(next.spotRadius(), 114.0);
}

void EventMonitorsTest::theRingsAreRemovedWithTheController()
{
    Environment environment;
    {
        const auto app = environment.launch();
        app->toggleClicks();
        environment.desktop.eventMonitor().pressLeft();
        environment.desktop.eventMonitor().pressLeft();
        QCOMPARE(ClickRing::live.rings.size(), std::size_t(2));
    }
    QVERIFY(ClickRing::live.rings.empty());
    QVERIFY(!ClickRing::live.timer);
    QVERIFY(environment.desktop.surfaces(SurfaceRole::Effect).empty());
}

void EventMonitorsTest::eventsAfterTheControllerIsGoneDoNothing()
{
    Environment environment;
    {
        const auto app = environment.launch();
        app->toggleClicks();
        app->toggleSpot();
    }
    environment.desktop.takeLog();
    environment.desktop.eventMonitor().pressLeftLate();
    environment.desktop.eventMonitor().scrollLate(altNotches(1));
    QCOMPARE(environment.desktop.takeLog(), QStringList());
    QVERIFY(!environment.defaults.doubleForKey(kSpotRadiusKey));
}

REGISTER_TEST(EventMonitorsTest)
#include "event_monitors_test.moc"
