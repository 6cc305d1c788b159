#pragma once

#include <QString>

namespace zeigewerk {

/// The version that this program is, such as "1.0.2".
QString appVersion();

} // namespace zeigewerk
