#include "updater/feed_download.h"

#include "updater/feed_address.h"

#include <QNetworkProxy>
#include <QNetworkRequest>

#include <utility>

namespace zeigewerk {

namespace {

/// In bytes. At most this much is unpacked before it is counted.
constexpr qint64 kBuffer = qint64{64} * 1024;

FeedFailure failureOf(const QNetworkReply &reply)
{
    constexpr int kFirstHttpError = 400;
    switch (reply.error()) {
    case QNetworkReply::HostNotFoundError:
        return FeedFailure::HostNotFound;
    case QNetworkReply::SslHandshakeFailedError:
        return FeedFailure::NotSecure;
    case QNetworkReply::ContentNotFoundError:
    case QNetworkReply::ContentGoneError:
        return FeedFailure::NotFound;
    default:
        break;
    }
    if (reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() >= kFirstHttpError)
        return FeedFailure::ServerError;
    // The content cannot be unpacked, or unpacks to far more than was sent.
    if (reply.error() == QNetworkReply::UnknownContentError)
        return FeedFailure::NotReadable;
    return FeedFailure::NoConnection;
}

} // namespace

FeedDownload::FeedDownload(const QByteArray &userAgent, const QSslConfiguration &security)
    : m_userAgent(userAgent)
    , m_security(security)
{
}

FeedDownload::~FeedDownload() = default;

void FeedDownload::start(const QString &address)
{
    const std::optional<QUrl> url = allowedAddress(address);
    if (!url)
        return finish(FeedFailure::BadAddress);
    // Requests to this machine do not leave it.
    if (isLoopback(*url))
        m_network.setProxy(QNetworkProxy::NoProxy);
    ask(*url);
}

void FeedDownload::ask(const QUrl &url)
{
    m_reply.reset(m_network.get(requestFor(url)));
    m_reply->setReadBufferSize(kBuffer);
    connect(m_reply.get(), &QIODevice::readyRead, this, &FeedDownload::readData);
    connect(m_reply.get(), &QNetworkReply::finished, this, &FeedDownload::replyFinished);
}

QNetworkRequest FeedDownload::requestFor(const QUrl &url) const
{
    QNetworkRequest request(url);
    request.setSslConfiguration(m_security);
    request.setHeader(QNetworkRequest::UserAgentHeader, m_userAgent);
    // Qt would send the user's languages.
    request.setRawHeader("Accept-Language", "*");
    // `redirect` decides where it may go, and how often.
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    // HTTP/2 gains nothing for one small file.
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    return request;
}

void FeedDownload::redirect(const QUrl &url)
{
    if (++m_redirects > kMaxRedirects || !mayLeadTo(m_reply->url(), url))
        return finish(FeedFailure::BadRedirect);
    m_bytes.clear();
    dropReply();
    ask(url);
}

void FeedDownload::readData()
{
    m_bytes += m_reply->read(kLargestFeed + 1 - m_bytes.size());
    if (m_bytes.size() > kLargestFeed)
        finish(FeedFailure::TooLarge);
}

void FeedDownload::replyFinished()
{
    if (m_reply->error() != QNetworkReply::NoError)
        return finish(failureOf(*m_reply));
    readData();
    if (!m_reply)
        return; // the feed was too large
    const QVariant target = m_reply->attribute(QNetworkRequest::RedirectionTargetAttribute);
    if (target.isValid())
        return redirect(m_reply->url().resolved(target.toUrl()));
    const auto items = parseFeed(m_bytes);
    if (items)
        finish(newestItem(*items));
    else
        finish(FeedFailure::NotReadable);
}

void FeedDownload::finish(const FeedAnswer &answer)
{
    dropReply();
    Q_EMIT finished(answer);
}

void FeedDownload::dropReply()
{
    if (!m_reply)
        return;
    // The reply may be the caller, and aborting it would emit `finished` again.
    m_reply->disconnect(this);
    m_reply->abort();
    m_reply.release()->deleteLater();
}

} // namespace zeigewerk
