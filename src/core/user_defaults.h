#pragma once

#include <QHash>
#include <QSettings>
#include <QString>
#include <QTimer>
#include <QVariant>

#include <optional>

namespace zeigewerk {

/// The program's only state on disk. A change holds at once, and is on the disk half a second later or when
/// this is destroyed; whatever cannot be read as what it should be counts as absent.
class UserDefaults
{
public:
    /// The user's own settings.
    UserDefaults();
    /// Settings in that file, in the INI format.
    explicit UserDefaults(const QString &fileName);
    ~UserDefaults();
    UserDefaults(const UserDefaults &) = delete;
    UserDefaults &operator=(const UserDefaults &) = delete;

    /// "true", "false", "1" or "0".
    std::optional<bool> boolForKey(QAnyStringView key) const;
    /// A number, infinity included; "nan" is none.
    std::optional<double> doubleForKey(QAnyStringView key) const;

    std::optional<QString> stringForKey(QAnyStringView key) const;

    // When the file cannot be written, the value holds for this run.
    void setBool(QAnyStringView key, bool value);
    void setDouble(QAnyStringView key, double value);
    void setString(QAnyStringView key, const QString &value);

private:
    void prepareWriting();
    QVariant value(QAnyStringView key) const;
    void set(QAnyStringView key, const QVariant &value);
    void write();

    QSettings m_settings;
    /// What is not on the disk yet.
    QHash<QString, QVariant> m_changed;
    QTimer m_writing;
};

} // namespace zeigewerk
