#pragma once

#include <QHash>
#include <QSettings>
#include <QString>
#include <QTimer>
#include <QVariant>

#include <optional>

namespace zeigewerk {

/// The program's only state on disk. A change takes effect at once, and is written to disk half a second
/// later or on destruction. A value that cannot be read as its type counts as absent.
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

    /// Accepts "true", "false", "1" and "0", in any case.
    std::optional<bool> boolForKey(QAnyStringView key) const;
    /// A number, which may be infinite but not NaN.
    std::optional<double> doubleForKey(QAnyStringView key) const;

    std::optional<QString> stringForKey(QAnyStringView key) const;

    // If the file cannot be written, the value still holds for this run.
    void setBool(QAnyStringView key, bool value);
    void setDouble(QAnyStringView key, double value);
    void setString(QAnyStringView key, const QString &value);

private:
    void prepareWriting();
    QVariant value(QAnyStringView key) const;
    void set(QAnyStringView key, const QVariant &value);
    void write();

    QSettings m_settings;
    /// Changes that are not on disk yet.
    QHash<QString, QVariant> m_changed;
    QTimer m_writing;
};

} // namespace zeigewerk
