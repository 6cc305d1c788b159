// The window that the rig's self tests show.
#pragma once

#include <QColor>
#include <QRect>

namespace zeigewerk::rig {

inline constexpr QRect kBeneath(200, 100, 800, 600);
inline const QColor kBlue(0x20, 0x60, 0xC0);

} // namespace zeigewerk::rig
