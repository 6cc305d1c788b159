#pragma once

#include "core/app_delegate.h"
#include "recording/recording_desktop.h"

#include <QColor>
#include <QTemporaryDir>

namespace zeigewerk::test {

inline const QColor kBoard(255, 255, 255);

/// The settings that the program starts with.
struct Settings
{
    bool autoFade = false;
    double spotRadius = kDefaultSpotRadius;
};

/// The program on an in-memory desktop with one screen, and a clock that only the test advances.
class Canvas
{
public:
    explicit Canvas(QSize pixels = {400, 300}, double scale = 1.0, Settings settings = {});

    AppDelegate &app() { return *m_app; }
    DrawingView &view() { return m_app->overlays().front()->view(); }
    platform::RecordingDesktop &desktop() { return m_desktop; }
    platform::RecordingSurface &surface();

    void passTime(double seconds);
    /// Moves the pointer and runs one tick of the follow timer.
    void movePointer(QPointF position);
    /// Drags the mouse with the shape's tool, colour and width, through its points or from its start to its
    /// end. The button stays down.
    void drag(const Shape &shape);
    /// Drags, and releases the button at the end.
    void draw(const Shape &shape);

    /// Repaints what changed on the surface. Returns whether anything was painted.
    bool display();
    /// The number of pixels that the last display() painted.
    qint64 lastPaintedPixels() const { return m_lastPaintedPixels; }
    const QImage &image() { return surface().image(); }
    QColor at(QPointF viewPoint);
    /// What a full repaint would give.
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
