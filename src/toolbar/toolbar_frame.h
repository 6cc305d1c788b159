#pragma once

#include "platform/geometry.h"

#include <QRectF>
#include <QString>

#include <optional>
#include <vector>

namespace zeigewerk {

/// The last place of the toolbar: points, global coordinates, y up, and the screen that it was on.
struct SavedFrame
{
    QRectF frame;
    QString screenName;

    /// Reads "x y width height screen"; nothing for any other text.
    static std::optional<SavedFrame> fromString(const QString &text);
    QString toString() const;
};

/// The initial origin of a toolbar of that size: at the right edge of the main screen's visible frame, which
/// excludes docks, and centred vertically.
QPointF firstPlace(const QRectF &visibleFrame, QSizeF size);

/// Whether some screen shows enough of the frame for users to grab it.
bool isReachable(const QRectF &frame, const std::vector<platform::Screen> &screens);

/// The origin nearest to the frame's at which the frame lies inside the visible frame. If it is too large for
/// that, its top does.
QPointF broughtIntoView(const QRectF &frame, const QRectF &visibleFrame);

} // namespace zeigewerk
