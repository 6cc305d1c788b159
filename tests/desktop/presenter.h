#pragma once

#include "demo_slide.h"
#include "toolbar_user.h"

#include <QDir>

#include <array>
#include <functional>
#include <optional>

namespace zeigewerk::rig {

/// Indices of the toolbar's swatches and widths.
enum Swatch { Orange, Navy, Red, Green, Yellow, Blue };
enum Width { Thin, Medium, Broad };

/// The colours that those swatches select.
inline const std::array kInks = {QColor(0xF2, 0x9A, 0x00), QColor(0x18, 0x22, 0x45),
                                 QColor(0xFF, 0x3B, 0x30), QColor(0x34, 0xC7, 0x59),
                                 QColor(0xFF, 0xD6, 0x0A), QColor(0x0A, 0x84, 0xFF)};

inline constexpr QRect kDemoScreen(0, 0, 1920, 1080);
/// Free of the toolbar at scales 1 and 2, because its swatches have the colours of the marks.
inline constexpr QRect kDemoSlide(0, 0, 1530, 1080);

/// Points along an ellipse, a little more than one turn, as if drawn by hand.
QList<QPoint> loopAround(QPoint middle, int width, int height);
QList<QPoint> straight(QPoint from, QPoint to);

/// Presents a slide on a virtual desktop, uses the program as a person would, with keys and pointer, and
/// saves pictures of the screen.
class Presenter
{
public:
    /// `folder` receives the pictures; `scale` is the number of pixels per point.
    Presenter(const QDir &folder, int scale);

    /// Shows the slide and waits for the program; false if either does not appear. Must be called first.
    bool begin();

protected:
    int scale() const { return m_scale; }
    DesktopSession &session() { return m_session; }
    const Program &program() const { return m_program; }
    DemoSlide &slide() { return m_slide; }
    ToolbarUser &toolbar() { return *m_toolbar; }

    /// Clicks that button.
    bool choose(const QString &button, int index = 0);
    /// Chooses a tool, colour and width, and waits until the next stroke will use them.
    bool take(const QString &tool, int color, int width);
    bool draw(const QList<QPoint> &points) { return m_session.pointer().drag(points); }
    bool drawWith(const QString &tool, int color, int width, const QList<QPoint> &points);
    bool drawWithShift(const QList<QPoint> &points);
    /// Presses at a place, waits for the text field, and enters the text. `inField` is a place that the field
    /// covers.
    bool write(QPoint place, QPoint inField, const QString &text);
    bool isDrawing();
    /// Taps the key and waits until everything is off.
    bool endWith(Key key);

    QColor pixel(QPoint place) { return m_session.screenshot().pixel(place); }
    /// How many pixels of a rectangle have that colour.
    int count(const QRect &rect, const QColor &color) { return m_session.screenshot().count(color, rect, 2); }
    bool isDark(QPoint place) { return pixel(place).lightness() < 128; }
    /// Waits for the condition, then saves a picture of the screen or of a part of it.
    bool shows(const char *file, const char *what, const std::function<bool()> &condition,
               const QRect &part = kDemoScreen);
    bool keep(const Screenshot &picture, const char *file, const char *what, bool isRight,
              const QRect &part = kDemoScreen);

private:
    QDir m_folder;
    int m_scale;
    DesktopSession m_session;
    DemoSlide m_slide;
    Program m_program;
    std::optional<ToolbarUser> m_toolbar;
};

} // namespace zeigewerk::rig
