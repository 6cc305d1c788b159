#pragma once

#include "core/user_defaults.h"
#include "platform/desktop.h"

#include <QObject>

namespace zeigewerk {

/// The autosave name of the toolbar's frame.
inline constexpr char kToolbarFrameKey[] = "ZeigewerkToolbar";

/// Keeps the toolbar where it belongs: at its first place until it is dragged, then where it was left, and
/// always where a hand can reach it.
class ToolbarPlacement : public QObject
{
    Q_OBJECT

public:
    /// All must outlive the placement.
    ToolbarPlacement(platform::Desktop &desktop, platform::WidgetWindow &window, UserDefaults &defaults);

    /// Puts the toolbar where it was left, else at its first place on the main screen. A place that no screen
    /// shows is brought into view and stays saved, for when its screen comes back. With no screen at all
    /// nothing is moved.
    void place();

    // The pointer drags the toolbar, and its place at the end is saved. `grip` is the point that was pressed,
    // `position` where the pointer is now: points from the lower left corner of the frame, y up.
    void dragBegan(QPointF grip);
    void dragMoved(QPointF position);
    void dragEnded();

private:
    std::optional<platform::Screen> screenNamed(const QString &name) const;
    /// The screen for a toolbar that has none: the one it has been put on before, else the main screen.
    std::optional<platform::Screen> homeScreen();
    void placeSaved(QPointF origin, const QString &screenName);
    QString screenUnder(const QRectF &frame) const;

    platform::Desktop &m_desktop;
    platform::WidgetWindow &m_window;
    UserDefaults &m_defaults;
    QString m_homeScreen;
    QPointF m_grip;
    /// A press that goes nowhere is no drag.
    bool m_isMoved = false;
};

} // namespace zeigewerk
