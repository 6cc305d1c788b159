#pragma once

#include <QSettings>
#include <QString>

#include <optional>

namespace zeigewerk {

/// The program's only state on disk. Values are written through at each change; whatever cannot be read as
/// what it should be counts as absent.
class UserDefaults
{
public:
    /// The user's own settings.
    UserDefaults();
    /// Settings in that file, in the INI format.
    explicit UserDefaults(const QString &fileName);

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
    QSettings m_settings;
};

} // namespace zeigewerk
