#pragma once

#include "core/app_delegate.h"
#include "recording/recording_desktop.h"

#include <QTemporaryDir>

#include <chrono>
#include <optional>

namespace zeigewerk::test {

/// Two screens side by side: "A" of 1000 x 800 points, and "B" of 800 x 600 points to its right, both with
/// their upper edge at the same height.
inline std::vector<platform::Screen> twoScreens()
{
    return {{.name = QStringLiteral("A"), .nativeFrame = {0, 0, 1000, 800}, .scale = 1, .frame = {}},
            {.name = QStringLiteral("B"), .nativeFrame = {1000, 0, 800, 600}, .scale = 1, .frame = {}}};
}

/// Scrolling as fingers on a touchpad do, not in notches of a wheel.
inline constexpr bool kPrecise = true;

/// A controller with its own settings, on a recording desktop, and with a clock that only the test advances.
class Controller
{
public:
    Controller() = default;
    explicit Controller(std::vector<platform::Screen> screens)
        : desktop(std::move(screens))
    {
    }

    /// The controller, launched on first use; until then, a test can prepare the settings.
    AppDelegate &app()
    {
        if (!m_app) {
            m_app.emplace(
                desktop, defaults, [this] { return now; }, info);
            m_app->applicationDidFinishLaunching();
        }
        return *m_app;
    }

    DrawingView &view(std::size_t screen = 0) { return app().overlays().at(screen)->view(); }
    platform::RecordingSurface &surface(std::size_t screen = 0)
    {
        app();
        return *desktop.surfaces(platform::SurfaceRole::Overlay).at(screen);
    }

    /// Draws a short stroke with the current tool.
    void draw(DrawingView &view, QPointF from = {100, 100}, QPointF to = {200, 150})
    {
        view.mouseDown({from, {}});
        view.mouseDragged({to, {}});
        view.mouseUp({to, {}});
    }

    /// Turns drawing on, with auto-fade on from the start.
    void startWithFading()
    {
        defaults.setBool(kAutoFadeKey, true);
        app().toggleDraw();
    }

    /// Performs the operations that the letters name, one after the other: d draw, w whiteboard, s spotlight,
    /// k clicks, p pin, r cursor ring, f auto-fade, e Esc.
    void perform(const QString &letters)
    {
        app();
        for (const QChar letter : letters) {
            switch (letter.unicode()) {
            case u'd':
                app().toggleDraw();
                break;
            case u'w':
                app().toggleBoard();
                break;
            case u's':
                app().toggleSpot();
                break;
            case u'k':
                app().toggleClicks();
                break;
            case u'p':
                app().togglePin();
                break;
            case u'r':
                app().toggleRing();
                break;
            case u'f':
                app().toggleFade();
                break;
            case u'e':
                app().escapePressed();
                break;
            default:
                qFatal("no operation is named %c", letter.toLatin1());
            }
        }
    }

    void passTime(double seconds)
    {
        now += std::chrono::duration_cast<WallClock::duration>(std::chrono::duration<double>(seconds));
    }

    QTemporaryDir home;
    platform::RecordingDesktop desktop;
    UserDefaults defaults{home.filePath(QStringLiteral("settings.ini"))};
    /// Names no update feed.
    BundleInfo info;
    TimePoint now = TimePoint(std::chrono::seconds(1'700'000'000));

private:
    std::optional<AppDelegate> m_app;
};

} // namespace zeigewerk::test
