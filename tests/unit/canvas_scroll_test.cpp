#include "controller_fixture.h"
#include "registered_test.h"

#include <QFile>
#include <QTest>

#include <limits>

using namespace zeigewerk;
using platform::ScrollEvent;
using test::Controller;
using test::kPrecise;

class CanvasScrollTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theWheelChangesTheRadiusWithinItsBounds_data();
    void theWheelChangesTheRadiusWithinItsBounds();
    void withoutTheSpotlightTheWheelDoesNothing();
    void withoutAControllerTheWheelDoesNothing();
    void theRadiusSurvivesARestart();
    void theNextFollowStepShowsTheNewRadius();
    void withUnwritableSettingsTheRadiusLastsForTheRun_data();
    void withUnwritableSettingsTheRadiusLastsForTheRun();
};

namespace {

using platform::Modifier;

ScrollEvent notches(double count)
{
    return {.distance = count, .isPrecise = false, .modifiers = {}};
}

} // namespace

void CanvasScrollTest::theWheelChangesTheRadiusWithinItsBounds_data()
{
    QTest::addColumn<double>("before");
    QTest::addColumn<double>("distance");
    QTest::addColumn<bool>("isPrecise");
    QTest::addColumn<double>("after");

    const double infinity = std::numeric_limits<double>::infinity();
    // A table, one row per line.
    // clang-format off
    QTest::newRow("a notch up")             << 90.0     << 1.0   << !kPrecise << 98.0;
    QTest::newRow("a notch down")           << 90.0     << -1.0  << !kPrecise << 82.0;
    QTest::newRow("three notches at once")  << 90.0     << 3.0   << !kPrecise << 114.0;
    QTest::newRow("fingers up")             << 90.0     << 10.0  << kPrecise  << 102.0;
    QTest::newRow("fingers down")           << 90.0     << -10.0 << kPrecise  << 78.0;
    QTest::newRow("just below the largest") << 390.0    << 1.0   << !kPrecise << 398.0;
    QTest::newRow("to the largest")         << 398.0    << 1.0   << !kPrecise << 400.0;
    QTest::newRow("at the largest")         << 400.0    << 1.0   << !kPrecise << 400.0;
    QTest::newRow("to the smallest")        << 36.0     << -5.0  << kPrecise  << 35.0;
    QTest::newRow("at the smallest")        << 35.0     << -1.0  << !kPrecise << 35.0;
    QTest::newRow("from beyond the bounds") << 1e9      << -1.0  << !kPrecise << 400.0;
    QTest::newRow("from infinity")            << infinity << -1.0  << !kPrecise << 400.0;
    QTest::newRow("from below the bounds")  << 1e-300   << 1.0   << !kPrecise << 35.0;
    QTest::newRow("no movement")          << 120.0    << 0.0   << !kPrecise << 120.0;
    // clang-format on
}

void CanvasScrollTest::theWheelChangesTheRadiusWithinItsBounds()
{
    QFETCH(double, before);
    QFETCH(double, distance);
    QFETCH(bool, isPrecise);
    QFETCH(double, after);
    Controller controller;
    controller.defaults.setDouble(kSpotRadiusKey, before);
    controller.perform("ws");
    controller.view().scrollWheel({.distance = distance, .isPrecise = isPrecise, .modifiers = {}});
    QCOMPARE(controller.app().spotRadius(), after);
    QCOMPARE(controller.defaults.doubleForKey(kSpotRadiusKey), std::optional(after));
}

void CanvasScrollTest::withoutTheSpotlightTheWheelDoesNothing()
{
    Controller controller;
    controller.app().toggleBoard();
    controller.view().scrollWheel(notches(1));
    QCOMPARE(controller.app().spotRadius(), kDefaultSpotRadius);
    QVERIFY(!controller.defaults.doubleForKey(kSpotRadiusKey));
}

void CanvasScrollTest::withoutAControllerTheWheelDoesNothing()
{
    DrawingView view(QSizeF(100, 100));
    view.scrollWheel(notches(1));
    QVERIFY(view.shapes().empty());
}

void CanvasScrollTest::theRadiusSurvivesARestart()
{
    Controller controller;
    controller.perform("ws");
    // The modifiers held meanwhile do not matter.
    controller.view().scrollWheel({.distance = 2.0, .isPrecise = false, .modifiers = Modifier::Ctrl});
    controller.view().scrollWheel({.distance = 1.0, .isPrecise = false, .modifiers = Modifier::Shift});
    const AppDelegate next(controller.desktop, controller.defaults);
    QCOMPARE(next.spotRadius(), 114.0);
}

void CanvasScrollTest::theNextFollowStepShowsTheNewRadius()
{
    Controller controller;
    controller.desktop.setMouseLocation({500, 400});
    controller.perform("ws");
    const auto isClear = [&](int x) {
        controller.surface().display();
        return QColor(controller.surface().image().pixel(x, 400)) == QColor(Qt::white);
    };
    QVERIFY(isClear(500 + 88));
    QVERIFY(!isClear(500 + 94));
    controller.view().scrollWheel(notches(1));
    // The follow timer shows it; the pointer has not moved.
    QTRY_VERIFY(isClear(500 + 94));
    QVERIFY(!isClear(500 + 102));
    controller.view().scrollWheel(notches(-2));
    QTRY_VERIFY(!isClear(500 + 88));
}

void CanvasScrollTest::withUnwritableSettingsTheRadiusLastsForTheRun_data()
{
    QTest::addColumn<QString>("obstacle");
    QTest::newRow("the file is read-only") << "read-only file";
    QTest::newRow("a folder has the file's name") << "folder in its place";
    QTest::newRow("its folder cannot be created") << "file in place of its folder";
}

void CanvasScrollTest::withUnwritableSettingsTheRadiusLastsForTheRun()
{
    QFETCH(QString, obstacle);
    QTemporaryDir home;
    QString path = home.filePath("settings.ini");
    if (obstacle == "folder in its place") {
        QVERIFY(QDir(home.path()).mkdir("settings.ini"));
    } else {
        QFile file(path);
        QVERIFY(file.open(QFile::WriteOnly));
        file.close();
        QVERIFY(file.setPermissions(QFile::ReadOwner));
        if (obstacle == "file in place of its folder")
            path += "/settings.ini";
    }
    platform::RecordingDesktop desktop;
    UserDefaults defaults(path);
    AppDelegate app(desktop, defaults);
    app.applicationDidFinishLaunching();
    app.toggleBoard();
    app.toggleSpot();
    DrawingView &view = app.overlays().front()->view();
    view.scrollWheel(notches(1));
    view.scrollWheel(notches(1));
    QCOMPARE(app.spotRadius(), 106.0);
    QCOMPARE(defaults.doubleForKey(kSpotRadiusKey), std::optional(106.0));
    app.toggleFade();
    QVERIFY(app.autoFadeOn());
}

REGISTER_TEST(CanvasScrollTest)
#include "canvas_scroll_test.moc"
