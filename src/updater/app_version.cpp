#include "updater/app_version.h"

namespace zeigewerk {

QString appVersion()
{
    return QStringLiteral(ZEIGEWERK_VERSION);
}

} // namespace zeigewerk
