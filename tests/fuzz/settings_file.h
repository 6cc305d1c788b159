#pragma once

#include "base/stop.h"

#include <QFile>
#include <QTemporaryDir>

namespace zeigewerk::fuzz {

/// The name for a settings file; the destructor removes the file. Every name is new because Qt caches what it
/// has read from a file.
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
        mustHold(folder.isValid(), "the folder for settings files can be created");
        return folder.filePath(QStringLiteral("%1.ini").arg(number++));
    }
};

} // namespace zeigewerk::fuzz
