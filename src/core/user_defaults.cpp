#include "core/user_defaults.h"

#include <cmath>

namespace zeigewerk {

UserDefaults::UserDefaults()
    : m_settings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("zeigewerk"),
                 QStringLiteral("zeigewerk"))
{
}

UserDefaults::UserDefaults(const QString &fileName)
    : m_settings(fileName, QSettings::IniFormat)
{
}

std::optional<bool> UserDefaults::boolForKey(QAnyStringView key) const
{
    const QString text = m_settings.value(key.toString()).toString().trimmed().toLower();
    if (text == QLatin1String("true") || text == QLatin1String("1"))
        return true;
    if (text == QLatin1String("false") || text == QLatin1String("0"))
        return false;
    return std::nullopt;
}

std::optional<double> UserDefaults::doubleForKey(QAnyStringView key) const
{
    bool isNumber = false;
    const double value = m_settings.value(key.toString()).toString().toDouble(&isNumber);
    if (!isNumber || std::isnan(value))
        return std::nullopt;
    return value;
}

std::optional<QString> UserDefaults::stringForKey(QAnyStringView key) const
{
    const QVariant value = m_settings.value(key.toString());
    // An unquoted comma makes a list of a text; that is not what was written.
    return value.metaType() == QMetaType::fromType<QString>() ? std::optional(value.toString())
                                                              : std::nullopt;
}

void UserDefaults::setBool(QAnyStringView key, bool value)
{
    m_settings.setValue(key.toString(), value);
    m_settings.sync();
}

void UserDefaults::setDouble(QAnyStringView key, double value)
{
    m_settings.setValue(key.toString(), value);
    m_settings.sync();
}

void UserDefaults::setString(QAnyStringView key, const QString &value)
{
    m_settings.setValue(key.toString(), value);
    m_settings.sync();
}

} // namespace zeigewerk
