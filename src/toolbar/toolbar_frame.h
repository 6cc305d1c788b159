#pragma once

#include "platform/geometry.h"

#include <QRectF>
#include <QString>

#include <optional>
#include <vector>

namespace zeigewerk {

/// Where the toolbar was left: points, global coordinates, y up. The screen is the one that it was on.
struct SavedFrame
{
    QRectF frame;
    QString screenName;

    /// "x y width height screen"; none for anything else.
    static std::optional<SavedFrame> fromString(const QString &text);
    QString toString() const;
};

/// The first place of a toolbar of that size: at the right edge of what the docks leave free of the main
/// screen, centred vertically.
QPointF firstPlace(const QRectF &visibleFrame, QSizeF size);

/// Whether some screen shows enough of the frame to take hold of it.
bool isReachable(const QRectF &frame, const std::vector<platform::Screen> &screens);

/// The place nearest to the frame's at which the visible frame holds it whole; at least its top, where it is
/// too large for that.
QPointF broughtIntoView(const QRectF &frame, const QRectF &visibleFrame);

} // namespace zeigewerk
