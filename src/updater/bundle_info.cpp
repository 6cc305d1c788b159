#include "updater/bundle_info.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSettings>

namespace zeigewerk {

namespace {

constexpr char kFeedUrlKey[] = "SUFeedURL";
/// In bytes. A larger file is not an info file.
constexpr qint64 kMaxFileSize = qint64{64} * 1024;

} // namespace

BundleInfo BundleInfo::read(const QString &fileName)
{
    const QFileInfo file(fileName);
    if (!file.isFile() || file.size() > kMaxFileSize)
        return {};
    const QSettings settings(fileName, QSettings::IniFormat);
    const QString key = QLatin1String(kFeedUrlKey);
    if (!settings.contains(key))
        return {};
    // QSettings reads text with an unquoted comma as a list.
    return {.feedUrl = settings.value(key).toStringList().join(u',')};
}

BundleInfo BundleInfo::ofThisProgram()
{
    return read(QCoreApplication::applicationDirPath() + QStringLiteral("/../share/zeigewerk/info.ini"));
}

} // namespace zeigewerk
