#include "rig_error.h"

#include <QDebug>
#include <QString>

namespace zeigewerk::rig {

void failRig(const QString &what)
{
    qCritical().noquote() << "The test rig cannot go on:" << what;
    throw RigError(what.toStdString());
}

} // namespace zeigewerk::rig
