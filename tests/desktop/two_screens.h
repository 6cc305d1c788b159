#pragma once

#include <QRect>

namespace zeigewerk::rig {

// Two screens side by side, aligned at the top.
inline constexpr QRect kLeft(0, 0, 1280, 1024);
inline constexpr QRect kRight(1280, 0, 1600, 900);

} // namespace zeigewerk::rig
