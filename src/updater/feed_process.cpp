#include "updater/feed_process.h"

#include "updater/app_version.h"
#include "updater/child_setup.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace zeigewerk {

namespace {

QString userAgent()
{
    return QStringLiteral("Zeigewerk/") + appVersion();
}

} // namespace

QString feedProgram()
{
    const QString folder = QCoreApplication::applicationDirPath();
    const QString beside = folder + QStringLiteral("/zeigewerk-feed");
    return QFileInfo::exists(beside)
               ? beside
               : folder + QStringLiteral("/" ZEIGEWERK_LIBEXEC_FROM_BIN "/zeigewerk-feed");
}

FeedProcess::FeedProcess(const QString &program, const QString &address)
{
    bindToThisProcess(m_process);
    m_process.setProgram(program);
    m_process.setArguments({address, userAgent()});
    m_process.setStandardInputFile(QProcess::nullDevice());
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_timeLimit.setSingleShot(true);
    m_timeLimit.callOnTimeout(this, [this] { finish(FeedFailure::TooSlow); });
    connect(&m_process, &QProcess::errorOccurred, this, [this] { finish(FeedFailure::NoProcess); });
    connect(&m_process, &QProcess::finished, this, [this](int exitCode) {
        finish(readAnswer({.output = m_process.readAllStandardOutput(), .exitCode = exitCode}));
    });
}

FeedProcess::~FeedProcess()
{
    m_process.disconnect(this);
    m_process.kill();
    m_process.waitForFinished();
}

void FeedProcess::start(std::chrono::milliseconds timeLimit)
{
    m_timeLimit.start(timeLimit);
    m_process.start();
}

void FeedProcess::finish(const FeedAnswer &answer)
{
    m_process.disconnect(this);
    m_timeLimit.stop();
    Q_EMIT finished(answer);
}

} // namespace zeigewerk
