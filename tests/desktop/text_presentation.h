#pragma once

#include "toolbar_presentation.h"

#include <cstdlib>

namespace zeigewerk::rig {

/// Whether all four sides are within a pixel of each other.
inline bool isNear(const QRect &a, const QRect &b)
{
    return (a.topLeft() - b.topLeft()).manhattanLength() <= 1 && std::abs(a.right() - b.right()) <= 1 &&
           std::abs(a.bottom() - b.bottom()) <= 1;
}

/// A presentation in which the text tool has just been picked.
class TextPresentation : public Presentation
{
public:
    /// The size of the field in points.
    static constexpr QSize kField = QSize(340, 32);
    /// Where a line's ink may be, relative to the press, in points: it excludes the caret of a short text and
    /// the next field.
    static constexpr QRect kAroundPress = QRect(-4, -4, 330, 40);

    explicit TextPresentation(const DesktopSetup &setup = {}, double scale = 1.0)
        : TextPresentation(setup, scale, scale)
    {
    }
    /// With different scales on the first and on the second screen.
    TextPresentation(const DesktopSetup &setup, double scale, double scaleOfSecond)
        : Presentation(
              withAccessibility(setup),
              {{"QT_SCREEN_SCALE_FACTORS", QString("DUMMY0=%1;DUMMY1=%2").arg(scale).arg(scaleOfSecond)}})
        , presenter(session, program, scale)
        , m_scale(scale)
    {
        if (!pick(button::kText) || !eventually([&] { return hasKeyboard(); }))
            throw RigError("the presenter cannot write");
    }

    bool pick(const QString &tool)
    {
        return presenter.click(tool) && eventually([&] { return presenter.isOn(tool); });
    }
    /// The open text field's window, if there is exactly one.
    std::optional<WindowInfo> field()
    {
        QList<WindowInfo> fields;
        for (const WindowInfo &window : shownWindows()) {
            if (window.geometry.size() == (QSizeF(kField) * m_scale).toSize())
                fields.append(window);
        }
        return fields.size() == 1 ? std::optional(fields.first()) : std::nullopt;
    }
    /// Whether the field has the keyboard.
    bool isTyping()
    {
        const auto open = field();
        return open && session.client().inputFocus() == open->id;
    }
    /// Whether there is no field, and the canvas has the keyboard.
    bool isDrawing() { return !field() && hasKeyboard(); }
    /// Whether the line written at that press, of less than 300 points, is on the canvas, with only the
    /// window beneath around it. The screen may show the field for a while longer.
    bool isWritten(QPoint press)
    {
        const QPoint inField = press + (QPointF(320, 12) * m_scale).toPoint();
        return isDrawing() && pixel(inField) == beneathColor() && !inkAt(press).isEmpty();
    }
    bool open(QPoint place)
    {
        return session.pointer().clickAt(place) && eventually([&] { return isTyping(); });
    }
    /// The bounds of the ink of the line at that press, relative to the press.
    QRect inkAt(QPoint press)
    {
        const QRect around(kAroundPress.topLeft() * m_scale, QSizeF(kAroundPress.size()).toSize() * m_scale);
        return session.screenshot().bounds(kInk, around.translated(press), 8).translated(-press);
    }
    /// Types a greeting with umlauts, by key positions on a German keyboard.
    void typeGreeting()
    {
        session.keyboard().type("Gr");
        session.keyboard().tap(Key::BracketLeft);
        session.keyboard().tap(Key::Minus);
        session.keyboard().type("e, Welt");
    }
    void command(Key key) { session.keyboard().chord({Key::Ctrl}, key); }

    ToolbarUser presenter;

private:
    double m_scale;
};

} // namespace zeigewerk::rig
