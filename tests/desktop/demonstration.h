#pragma once

#include "demo_slide.h"
#include "toolbar_user.h"

#include <QDir>

#include <functional>

namespace zeigewerk::rig {

/// Somebody presents a slide on a virtual desktop and uses the program while doing so, with the keys and the
/// pointer of a person. Each step is looked for on the screen, and leaves a picture.
class Demonstration
{
public:
    /// `folder` is where the pictures go; `scale` is the number of pixels to a point.
    Demonstration(const QDir &folder, int scale);

    /// False as soon as a step does not show what it should.
    bool play();

private:
    bool toolbar();
    bool everyTool();
    bool undo();
    bool text();
    bool freehand();
    bool pin();
    bool clickRing();
    bool spotlight();
    bool whiteboard();
    bool menu();

    bool drawWith(const QString &tool, int color, int width, const QList<QPoint> &points);
    bool choose(const QString &button, int index = 0);
    bool draw(const QList<QPoint> &points) { return m_session.pointer().drag(points); }
    bool drawWithShift(const QList<QPoint> &points);
    bool drawingIsOn();
    bool endsWith(Key key);
    void hotKey(Key key) { m_session.keyboard().chord({Key::Ctrl, Key::Alt}, key); }

    QColor pixel(QPoint place) { return m_session.screenshot().pixel(place); }
    /// How many pixels of a rectangle have that colour.
    int count(const QRect &rect, const QColor &color) { return m_session.screenshot().count(color, rect, 2); }
    bool isDark(QPoint place) { return pixel(place).lightness() < 128; }
    /// Waits for the condition and keeps a picture of what is shown then.
    bool shows(const char *file, const char *what, const std::function<bool()> &condition);
    bool keep(const Screenshot &picture, const char *file, const char *what, bool isRight);

    QDir m_folder;
    int m_scale;
    DesktopSession m_session;
    DemoSlide m_slide;
    Program m_program;
    std::optional<ToolbarUser> m_toolbar;
};

} // namespace zeigewerk::rig
