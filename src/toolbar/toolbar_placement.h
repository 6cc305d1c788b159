#pragma once

#include "base/user_defaults.h"
#include "platform/desktop.h"

#include <QObject>

namespace zeigewerk {

/// The settings key of the toolbar's frame.
inline constexpr char kToolbarFrameKey[] = "ZeigewerkToolbar";

/// Places the toolbar: at its default place until it is dragged, then where it was left, and always where the
/// pointer can reach it.
class ToolbarPlacement : public QObject
{
    Q_OBJECT

public:
    /// All must outlive the placement.
    ToolbarPlacement(platform::Desktop &desktop, platform::WidgetWindow &window, UserDefaults &defaults);

    /// Puts the toolbar where it was left, else at its default place on the main screen. If no screen shows
    /// the saved place, the toolbar is brought into view, and the place stays saved until its screen comes
    /// back. Without any screen, nothing moves.
    void place();

    // The pointer drags the toolbar, and its place at the end is saved. `grip` is the point that was pressed,
    // `position` where the pointer is now: points from the lower left corner of the frame, y up.
    void dragBegan(QPointF grip);
    void dragMoved(QPointF position);
    void dragEnded();

private:
    std::optional<platform::Screen> screenNamed(const QString &name) const;
    /// The screen of the default place: the one used before, else the main screen.
    std::optional<platform::Screen> homeScreen();
    void placeSaved(QPointF origin, const QString &screenName);
    QString screenUnder(const QRectF &frame) const;

    platform::Desktop &m_desktop;
    platform::WidgetWindow &m_window;
    UserDefaults &m_defaults;
    QString m_homeScreen;
    QPointF m_grip;
    /// A press without a move is not a drag.
    bool m_isMoved = false;
};

} // namespace zeigewerk
