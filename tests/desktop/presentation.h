#pragma once

#include "rig.h"

#include <QRegion>

#include <algorithm>
#include <optional>

namespace zeigewerk::rig {

/// The pen as the program starts with it.
inline const QColor kInk(0xF2, 0x9A, 0x00);
inline constexpr double kDimming = 0.55;
/// Without its shadow, at scale 1.
inline constexpr QSize kToolbar(151, 477);
inline constexpr int kSmallestScreenWidth = 640;

/// What the spotlight's dimming makes of a colour.
inline QColor dimmed(const QColor &color)
{
    const auto dim = [](int component) { return qRound(component * (1 - kDimming)); };
    return {dim(color.red()), dim(color.green()), dim(color.blue())};
}

/// For presenters who look for buttons by their names.
inline DesktopSetup withAccessibility(DesktopSetup setup)
{
    setup.accessibility = true;
    return setup;
}

/// What every scenario begins with: somebody presents an ordinary window, which has the keyboard, and the
/// program waits for its hot keys.
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
    /// Whether the rectangle has that one colour wherever the toolbar, shadow included, does not lie.
    bool isFilled(const QColor &color, const QRect &rect)
    {
        const std::optional<WindowInfo> bar = toolbar();
        const QRegion besideToolbar = QRegion(rect) - (bar ? bar->geometry : QRect());
        const Screenshot screen = session.screenshot();
        return std::all_of(besideToolbar.begin(), besideToolbar.end(),
                           [&](const QRect &part) { return screen.isFilled(color, part); });
    }
    /// Whether the spotlight's dimming lies over that colour there, which looks the same a pixel below.
    /// Without a compositor it is black in every second row.
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
    /// Whether nothing but the window beneath, and the toolbar, shows in that rectangle.
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
    /// Those of them that are as large as a screen.
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
    /// Whether one of the program's windows has the keyboard: the last thing that happens when interaction
    /// begins.
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
