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

/// Has the spotlight painted with the radius that was read.
void showSpotlight(AppDelegate &app)
{
    mustHold(app.spotRadius() > 0.0, "the spotlight has a radius");
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

/// A run of the program, in which everything is changed. Returns how it left the settings.
Settings useAll(const QString &fileName)
{
    UserDefaults defaults(fileName);
    platform::RecordingDesktop desktop({kSmallScreen});
    AppDelegate app(desktop, defaults);
    showSpotlight(app);
    const PlacedToolbar toolbar(twoScreens(), defaults);
    mustHold(isReachable(toolbar.frame(), toolbar.screens()), "the toolbar can be reached");
    app.toggleFade();
    app.toggleDarkUI();
    app.adjustSpotRadius(-1.0);
    return settingsOf(app);
}

/// What the next start finds. From another file, since Qt knows what it has written to the first.
Settings stored(const QString &fileName)
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
    const Settings left = useAll(file.name);
    mustHold(stored(file.name) == left, "what is changed is kept");
}

} // namespace zeigewerk::fuzz
