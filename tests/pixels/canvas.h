#pragma once

#include "core/app_delegate.h"
#include "recording/recording_desktop.h"

#include <QColor>
#include <QTemporaryDir>

namespace zeigewerk::test {

inline const QColor kBoard(255, 255, 255);

/// What stands in the settings when the program starts.
struct Settings
{
    bool autoFade = false;
    double spotRadius = kDefaultSpotRadius;
};

/// The program on a desktop in memory with one screen, and a clock that only the test moves.
class Canvas
{
public:
    explicit Canvas(QSize pixels = {400, 300}, double scale = 1.0, Settings settings = {});

    AppDelegate &app() { return *m_app; }
    DrawingView &view() { return m_app->overlays().front()->view(); }
    platform::RecordingDesktop &desktop() { return m_desktop; }
    platform::RecordingSurface &surface();

    void pass(double seconds);
    /// Moves the pointer as the follow timer sees it.
    void movePointer(QPointF position);
    /// Draws with the mouse: the tool, colour and width of that shape through its points, or from its start
    /// to its end. The button stays down.
    void drag(const Shape &shape);
    /// The same with the button released at the end.
    void draw(const Shape &shape);

    /// Has the surface ask for what changed and paint it. Returns whether anything was painted.
    bool display();
    /// How many pixels that painted.
    qint64 lastPaintedPixels() const { return m_lastPaintedPixels; }
    const QImage &image() { return surface().image(); }
    QColor at(QPointF viewPoint);
    /// What painting everything would give.
    QImage wholePicture();

private:
    double m_scale;
    TimePoint m_now;
    QTemporaryDir m_home;
    platform::RecordingDesktop m_desktop;
    UserDefaults m_defaults;
    std::unique_ptr<AppDelegate> m_app;
    qint64 m_lastPaintedPixels = 0;
};

} // namespace zeigewerk::test
