#include "rig_error.h"

#include <QDebug>
#include <QString>

namespace zeigewerk::rig {

void failRig(const QString &what)
{
    qCritical().noquote() << "The test rig failed:" << what;
    throw RigError(what.toStdString());
}

} // namespace zeigewerk::rig
