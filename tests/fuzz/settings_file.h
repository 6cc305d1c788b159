#pragma once

#include "base/stop.h"

#include <QFile>
#include <QTemporaryDir>

namespace zeigewerk::fuzz {

/// The name of a file that is there only while this object is, if anyone makes one. Each has another name,
/// since Qt remembers what it has read from one.
class SettingsFile
{
public:
    SettingsFile()
        : name(newName())
    {
    }
    ~SettingsFile() { QFile::remove(name); }
    Q_DISABLE_COPY_MOVE(SettingsFile)

    const QString name;

private:
    static QString newName()
    {
        static const QTemporaryDir folder;
        static int number = 0;
        mustHold(folder.isValid(), "there is a folder for settings files");
        return folder.filePath(QStringLiteral("%1.ini").arg(number++));
    }
};

} // namespace zeigewerk::fuzz
