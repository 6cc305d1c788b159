#include "base/stop.h"
#include "core/app_delegate.h"
#include "fuzz/placed_toolbar.h"
#include "fuzz/settings_file.h"
#include "fuzz/targets.h"
#include "toolbar/panel_place.h"

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

/// Changes every setting, and returns whether the file has them then. Read from another file, since Qt knows
/// what it has written to the first.
bool areChangesKept(AppDelegate &app, const QString &name)
{
    app.toggleFade();
    app.toggleDarkUI();
    app.adjustSpotRadius(-1.0);
    const SettingsFile copy;
    mustHold(QFile::copy(name, copy.name), "the settings file can be copied");
    platform::RecordingDesktop desktop({kSmallScreen});
    UserDefaults defaults(copy.name);
    const AppDelegate read(desktop, defaults);
    return read.autoFadeOn() == app.autoFadeOn() && read.darkUI() == app.darkUI() &&
           read.spotRadius() == app.spotRadius();
}

} // namespace

void settings(Bytes input)
{
    const SettingsFile file;
    write(file.name, input);
    UserDefaults defaults(file.name);
    platform::RecordingDesktop desktop({kSmallScreen});
    AppDelegate app(desktop, defaults);
    showSpotlight(app);
    const PlacedToolbar toolbar(twoScreens(), defaults);
    mustHold(isReachable(toolbar.frame(), toolbar.screens()), "the toolbar can be reached");
    mustHold(areChangesKept(app, file.name), "what is changed is kept");
}

} // namespace zeigewerk::fuzz
