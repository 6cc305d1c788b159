#pragma once

#include "rig.h"

namespace zeigewerk::rig {

/// The program's settings file in a session's home.
class SettingsFile
{
public:
    explicit SettingsFile(const DesktopSession &session)
        : m_path(session.home().filePath(".config/zeigewerk/zeigewerk.ini"))
    {
    }

    /// Writes lines such as "Key=value" before the program starts; false if that fails.
    bool write(const QByteArray &lines) const
    {
        const QByteArray text = "[General]\n" + lines;
        if (!QDir().mkpath(QFileInfo(m_path).path()))
            return false;
        QFile file(m_path);
        return file.open(QFile::WriteOnly) && file.write(text) == text.size();
    }

    bool has(const QString &key) const { return !value(key).isEmpty(); }
    /// The value in the file; empty if there is none. Not read with QSettings, which caches files: a file
    /// that is replaced while it is being read would be mistaken for the new one from then on.
    QString value(const QString &key) const
    {
        QFile file(m_path);
        if (!file.open(QFile::ReadOnly))
            return {};
        for (const QByteArray &line : file.readAll().split('\n')) {
            if (line.startsWith(key.toUtf8() + '='))
                return QString::fromUtf8(line.mid(key.size() + 1));
        }
        return {};
    }

private:
    QString m_path;
};

} // namespace zeigewerk::rig
