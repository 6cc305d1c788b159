// The spotlight's radius, for scenarios with the wheel.
#pragma once

#include "presentation.h"
#include "settings_file.h"

namespace zeigewerk::rig {

/// In points: the default radius, and the change for one notch of the wheel.
inline constexpr int kRadius = 90;
inline constexpr int kNotch = 8;
/// The spotlight's place in these scenarios.
inline constexpr QPoint kMiddle = QPoint(600, 400);

/// Whether the spotlight has that radius, over that background.
inline bool reaches(DesktopSession &session, int radius, const QColor &ground)
{
    const Screenshot seen = session.screenshot();
    return seen.pixel(kMiddle + QPoint(radius - 3, 0)) == ground &&
           seen.pixel(kMiddle + QPoint(radius + 3, 0)) == dimmed(ground) &&
           seen.pixel(kMiddle - QPoint(0, radius - 3)) == ground &&
           seen.pixel(kMiddle - QPoint(0, radius + 3)) == dimmed(ground);
}

/// Empty if none is stored.
inline QString storedRadius(const DesktopSession &session)
{
    return SettingsFile(session).value("ZeigewerkSpotRadius");
}

inline bool isStored(const DesktopSession &session, int radius)
{
    return storedRadius(session) == QString::number(radius);
}

} // namespace zeigewerk::rig
