#pragma once

#include <QString>

namespace zeigewerk {

/// The version of this program, such as "1.0.2".
QString appVersion();

} // namespace zeigewerk
