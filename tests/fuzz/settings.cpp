#include "base/stop.h"
#include "core/app_delegate.h"
#include "fuzz/placed_toolbar.h"
#include "fuzz/settings_file.h"
#include "fuzz/targets.h"
#include "toolbar/toolbar_frame.h"

#include <QFile>

namespace zeigewerk::fuzz {

namespace {

const platform::Screen kSmallScreen = {
    .name = QStringLiteral("A"), .nativeFrame = {0, 0, 40, 30}, .scale = 1, .frame = {0, 0, 40, 30}};

void write(const QString &name, Bytes input)
{
    QFile file(name);
    mustHold(file.open(QFile::WriteOnly), "the settings file can be written");
    file.write(reinterpret_cast<const char *>(input.data()), static_cast<qint64>(input.size()));
}

/// Paints the spotlight with the radius from the settings.
void showSpotlight(AppDelegate &app)
{
    mustHold(app.spotRadius() > 0.0, "the spotlight radius is positive");
    app.toggleSpot();
    platform::RecordingDesktop desktop({kSmallScreen});
    Overlay overlay(desktop, kSmallScreen, app);
    overlay.window().orderFrontRegardless();
    desktop.surfaces(platform::SurfaceRole::Overlay).front()->display();
}

struct Settings
{
    bool autoFadeOn;
    bool darkUI;
    double spotRadius;
    bool operator==(const Settings &) const = default;
};

Settings settingsOf(const AppDelegate &app)
{
    return {.autoFadeOn = app.autoFadeOn(), .darkUI = app.darkUI(), .spotRadius = app.spotRadius()};
}

/// Runs the program once and changes every setting. Returns the settings at the end.
Settings changeEverySetting(const QString &fileName)
{
    UserDefaults defaults(fileName);
    platform::RecordingDesktop desktop({kSmallScreen});
    AppDelegate app(desktop, defaults);
    showSpotlight(app);
    const PlacedToolbar toolbar(twoScreens(), defaults);
    mustHold(isReachable(toolbar.frame(), toolbar.screens()), "the toolbar is within reach");
    app.toggleFade();
    app.toggleDarkUI();
    app.adjustSpotRadius(-1.0);
    return settingsOf(app);
}

/// The settings that the next start reads, from a copy because Qt caches what it wrote to the file.
Settings settingsAfterRestart(const QString &fileName)
{
    const SettingsFile copy;
    mustHold(QFile::copy(fileName, copy.name), "the settings file can be copied");
    UserDefaults defaults(copy.name);
    platform::RecordingDesktop desktop({kSmallScreen});
    return settingsOf(AppDelegate(desktop, defaults));
}

} // namespace

void settings(Bytes input)
{
    const SettingsFile file;
    write(file.name, input);
    const Settings changed = changeEverySetting(file.name);
    mustHold(settingsAfterRestart(file.name) == changed, "changed settings survive a restart");
}

} // namespace zeigewerk::fuzz
