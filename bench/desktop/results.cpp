#include "results.h"

#include <QDateTime>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSysInfo>
#include <QThread>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace zeigewerk::bench {

namespace {

QString shortNumber(double value)
{
    return QString::number(value, 'f', std::abs(value) < 10.0 ? 2 : std::abs(value) < 100.0 ? 1 : 0);
}

QString verdict(double value, const Bars &bars)
{
    if (!bars.bar)
        return {};
    QString text = QStringLiteral("bar %1").arg(*bars.bar);
    if (bars.beyond)
        text += QStringLiteral(", beyond %1").arg(*bars.beyond);
    if (value > *bars.bar)
        return text + QStringLiteral("  MISSED");
    return bars.beyond && value <= *bars.beyond ? text + QStringLiteral("  beyond")
                                                : text + QStringLiteral("  met");
}

/// The processor's name from /proc/cpuinfo.
QString processorName()
{
    QFile file(QStringLiteral("/proc/cpuinfo"));
    if (!file.open(QFile::ReadOnly))
        return {};
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.startsWith("model name"))
            return QString::fromUtf8(line.mid(line.indexOf(':') + 1)).trimmed();
    }
    return {};
}

} // namespace

void Results::heading(const QString &text)
{
    m_group = text;
    std::printf("\n%s\n", qPrintable(text));
    std::fflush(stdout);
}

void Results::add(const QString &name, double value, const QString &unit, const Bars &bars)
{
    m_results.push_back({m_group, name, value, unit, bars});
    std::printf("  %-52s %9s %-5s  %s\n", qPrintable(name), qPrintable(shortNumber(value)), qPrintable(unit),
                qPrintable(verdict(value, bars)));
    std::fflush(stdout);
}

bool Results::writeJson(const QString &path) const
{
    QJsonArray values;
    for (const Result &result : m_results) {
        QJsonObject object{{QStringLiteral("group"), result.group},
                           {QStringLiteral("name"), result.name},
                           {QStringLiteral("value"), result.value},
                           {QStringLiteral("unit"), result.unit}};
        if (result.bars.bar)
            object.insert(QStringLiteral("bar"), *result.bars.bar);
        if (result.bars.beyond)
            object.insert(QStringLiteral("beyond"), *result.bars.beyond);
        values.append(object);
    }
    const QJsonObject all{
        {QStringLiteral("time"), QDateTime::currentDateTimeUtc().toString(Qt::ISODate)},
        {QStringLiteral("system"), QSysInfo::prettyProductName()},
        {QStringLiteral("kernel"), QSysInfo::kernelVersion()},
        {QStringLiteral("processor"), processorName()},
        {QStringLiteral("cores"), QThread::idealThreadCount()},
        {QStringLiteral("results"), values},
    };
    QFile file(path);
    const QByteArray text = QJsonDocument(all).toJson();
    return file.open(QFile::WriteOnly) && file.write(text) == text.size();
}

int Results::misses() const
{
    return static_cast<int>(std::count_if(m_results.begin(), m_results.end(), [](const Result &result) {
        return result.bars.bar && result.value > *result.bars.bar;
    }));
}

double percentile(std::vector<double> values, double part)
{
    const auto count = static_cast<double>(values.size());
    const auto place = static_cast<std::size_t>(std::clamp(std::ceil(part * count) - 1.0, 0.0, count - 1.0));
    const auto nth = values.begin() + static_cast<std::ptrdiff_t>(place);
    std::nth_element(values.begin(), nth, values.end());
    return *nth;
}

} // namespace zeigewerk::bench
