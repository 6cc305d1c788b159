#include "running_test.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QTest>

namespace zeigewerk::rig {

QString runningTestName()
{
    QString name = QCoreApplication::applicationName();
    if (const char *function = QTest::currentTestFunction())
        name += u'_' + QString::fromUtf8(function);
    if (const char *row = QTest::currentDataTag())
        name += u'_' + QString::fromUtf8(row);
    static const QRegularExpression kUnfitForFiles(QStringLiteral("[^A-Za-z0-9_.-]+"));
    return name.replace(kUnfitForFiles, QStringLiteral("-"));
}

} // namespace zeigewerk::rig
