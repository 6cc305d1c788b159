#include "base/user_defaults.h"

#include <chrono>
#include <cmath>

namespace zeigewerk {

namespace {

/// A touchpad changes the spotlight's radius a hundred times a second. A write waits for the disk, and
/// painting waits for the write.
constexpr std::chrono::milliseconds kWriteAfter(500);

} // namespace

UserDefaults::UserDefaults()
    : m_settings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("zeigewerk"),
                 QStringLiteral("zeigewerk"))
{
    prepareWriting();
}

UserDefaults::UserDefaults(const QString &fileName)
    : m_settings(fileName, QSettings::IniFormat)
{
    prepareWriting();
}

UserDefaults::~UserDefaults()
{
    if (!m_changed.isEmpty())
        write();
}

std::optional<bool> UserDefaults::boolForKey(QAnyStringView key) const
{
    const QString text = value(key).toString().trimmed().toLower();
    if (text == QLatin1String("true") || text == QLatin1String("1"))
        return true;
    if (text == QLatin1String("false") || text == QLatin1String("0"))
        return false;
    return std::nullopt;
}

std::optional<double> UserDefaults::doubleForKey(QAnyStringView key) const
{
    bool isNumber = false;
    const double number = value(key).toString().toDouble(&isNumber);
    if (!isNumber || std::isnan(number))
        return std::nullopt;
    return number;
}

std::optional<QString> UserDefaults::stringForKey(QAnyStringView key) const
{
    const QVariant stored = value(key);
    // QSettings reads text with an unquoted comma as a list, which this class never writes.
    return stored.metaType() == QMetaType::fromType<QString>() ? std::optional(stored.toString())
                                                               : std::nullopt;
}

void UserDefaults::setBool(QAnyStringView key, bool value)
{
    set(key, value);
}

void UserDefaults::setDouble(QAnyStringView key, double value)
{
    set(key, value);
}

void UserDefaults::setString(QAnyStringView key, const QString &value)
{
    set(key, value);
}

void UserDefaults::prepareWriting()
{
    m_writing.setSingleShot(true);
    m_writing.setInterval(kWriteAfter);
    m_writing.callOnTimeout(&m_writing, [this] { write(); });
}

QVariant UserDefaults::value(QAnyStringView key) const
{
    const QString name = key.toString();
    const auto changed = m_changed.constFind(name);
    return changed == m_changed.constEnd() ? m_settings.value(name) : *changed;
}

void UserDefaults::set(QAnyStringView key, const QVariant &value)
{
    // Kept back from QSettings, which would write it on the next pass of the event loop.
    m_changed.insert(key.toString(), value);
    if (!m_writing.isActive())
        m_writing.start();
}

void UserDefaults::write()
{
    for (auto changed = m_changed.cbegin(); changed != m_changed.cend(); ++changed)
        m_settings.setValue(changed.key(), changed.value());
    m_changed.clear();
    m_settings.sync();
}

} // namespace zeigewerk
