#pragma once

#include "rig.h"

#include <QRegion>

#include <algorithm>
#include <optional>

namespace zeigewerk::rig {

/// The pen's initial colour.
inline const QColor kInk(0xF2, 0x9A, 0x00);
inline constexpr double kDimming = 0.55;
/// Without its shadow, at scale 1.
inline constexpr QSize kToolbar(151, 477);
inline constexpr int kSmallestScreenWidth = 640;

/// A colour under the spotlight's dimming.
inline QColor dimmed(const QColor &color)
{
    const auto dim = [](int component) { return qRound(component * (1 - kDimming)); };
    return {dim(color.red()), dim(color.green()), dim(color.blue())};
}

/// For scenarios that look for buttons by name.
inline DesktopSetup withAccessibility(DesktopSetup setup)
{
    setup.accessibility = true;
    return setup;
}

/// The start of every scenario: an ordinary window is presented and has the keyboard, and the program waits
/// for its hot keys.
class Presentation
{
public:
    explicit Presentation(const DesktopSetup &setup = {}, const QMap<QString, QString> &environment = {})
        : session(setup)
        , beneath(session, setup.screens.constFirst(), QColor(0x20, 0x60, 0xA0))
        , program(session, environment)
    {
        if (!beneath.takeFocus() || !program.waitUntilReady())
            throw RigError("the presentation does not start");
    }

    void hotKey(Key key) { session.keyboard().chord({Key::Ctrl, Key::Alt}, key); }
    QColor pixel(QPoint place) { return session.screenshot().pixel(place); }
    QColor beneathColor() const { return {0x20, 0x60, 0xA0}; }
    /// Whether the rectangle has that colour everywhere except under the toolbar and its shadow.
    bool isFilled(const QColor &color, const QRect &rect)
    {
        const std::optional<WindowInfo> bar = toolbar();
        const QRegion besideToolbar = QRegion(rect) - (bar ? bar->geometry : QRect());
        const Screenshot screen = session.screenshot();
        return std::all_of(besideToolbar.begin(), besideToolbar.end(),
                           [&](const QRect &part) { return screen.isFilled(color, part); });
    }
    /// Whether the spotlight's dimming covers that colour there; the pixel below must have the same colour.
    /// Without a compositor every second row is black instead.
    bool isDimmed(QPoint place, const QColor &ground)
    {
        const Screenshot screen = session.screenshot();
        if (session.isComposited())
            return screen.pixel(place) == dimmed(ground);
        const QColor here = screen.pixel(place);
        const QColor below = screen.pixel(place + QPoint(0, 1));
        return std::minmax(here.lightness(), below.lightness()) == std::minmax(0, ground.lightness()) &&
               (here == ground || below == ground);
    }
    bool isDimmed(QPoint place) { return isDimmed(place, beneathColor()); }
    /// Whether the rectangle shows nothing but the window beneath, and perhaps the toolbar.
    bool isUntouched(const QRect &rect) { return isFilled(beneathColor(), rect); }

    /// The program's windows on the screen.
    QList<WindowInfo> shownWindows()
    {
        QList<WindowInfo> shown;
        for (const WindowInfo &window : session.client().windowsOfProcess(program.processId())) {
            if (window.viewable && !window.inputOnly)
                shown.append(window);
        }
        return shown;
    }
    /// The program's windows that are as large as a screen.
    QList<WindowInfo> overlays()
    {
        QList<WindowInfo> overlays;
        for (const WindowInfo &window : shownWindows()) {
            if (window.geometry.width() >= kSmallestScreenWidth)
                overlays.append(window);
        }
        return overlays;
    }
    /// The toolbar's window, shadow included, if it is shown.
    std::optional<WindowInfo> toolbar()
    {
        for (const WindowInfo &window : shownWindows()) {
            const QSize size = window.geometry.size();
            if (size.width() < kSmallestScreenWidth && size.expandedTo(kToolbar) == size)
                return window;
        }
        return std::nullopt;
    }
    /// Whether a window of the program has the keyboard: the last step when drawing or the whiteboard starts.
    bool hasKeyboard()
    {
        const xcb_window_t focus = session.client().inputFocus();
        for (const WindowInfo &window : shownWindows()) {
            if (window.id == focus)
                return true;
        }
        return false;
    }

    DesktopSession session;
    WindowBeneath beneath;
    Program program;
};

} // namespace zeigewerk::rig
