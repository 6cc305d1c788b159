#include "updater/bundle_info.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSettings>

namespace zeigewerk {

namespace {

constexpr char kFeedUrlKey[] = "SUFeedURL";
/// In bytes; a larger one is something else.
constexpr qint64 kLargestFile = qint64{64} * 1024;

} // namespace

BundleInfo BundleInfo::read(const QString &fileName)
{
    const QFileInfo file(fileName);
    if (!file.isFile() || file.size() > kLargestFile)
        return {};
    const QSettings settings(fileName, QSettings::IniFormat);
    const QString key = QLatin1String(kFeedUrlKey);
    if (!settings.contains(key))
        return {};
    // An unquoted comma makes a list of a text.
    return {.feedUrl = settings.value(key).toStringList().join(u',')};
}

BundleInfo BundleInfo::ofThisProgram()
{
    return read(QCoreApplication::applicationDirPath() + QStringLiteral("/../share/zeigewerk/info.ini"));
}

} // namespace zeigewerk
