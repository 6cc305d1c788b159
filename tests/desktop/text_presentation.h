#pragma once

#include "toolbar_presentation.h"

#include <cstdlib>

namespace zeigewerk::rig {

/// Whether the sides of both lie within a pixel of each other.
inline bool isNear(const QRect &a, const QRect &b)
{
    return (a.topLeft() - b.topLeft()).manhattanLength() <= 1 && std::abs(a.right() - b.right()) <= 1 &&
           std::abs(a.bottom() - b.bottom()) <= 1;
}

/// A presentation whose presenter has just picked the text tool.
class TextPresentation : public Presentation
{
public:
    /// The field, in points.
    static constexpr QSize kField = QSize(340, 32);
    /// What the ink of a line may take around the point of its press, in points: no caret of a short text,
    /// and nothing of the next field.
    static constexpr QRect kAroundPress = QRect(-4, -4, 330, 40);

    explicit TextPresentation(const DesktopSetup &setup = {}, double scale = 1.0)
        : TextPresentation(setup, scale, scale)
    {
    }
    /// With that scale on the first screen and another one on the second.
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
    /// Whether the line of that press, of less than 300 points, stands on the canvas, with nothing around it
    /// but the window beneath. For a while the picture may still be that of the field.
    bool isWritten(QPoint press)
    {
        const QPoint inField = press + (QPointF(320, 12) * m_scale).toPoint();
        return isDrawing() && pixel(inField) == beneathColor() && !inkAt(press).isEmpty();
    }
    bool open(QPoint place)
    {
        return session.pointer().clickAt(place) && eventually([&] { return isTyping(); });
    }
    /// What of a line of that press is on the screen.
    QRect inkAt(QPoint press)
    {
        const QRect around(kAroundPress.topLeft() * m_scale, QSizeF(kAroundPress.size()).toSize() * m_scale);
        return session.screenshot().bounds(kInk, around.translated(press), 8).translated(-press);
    }
    /// Types what a German keyboard gives at these places.
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
