#include "updater/feed_download.h"

#include "updater/feed_address.h"

#include <QNetworkProxy>
#include <QNetworkRequest>

#include <utility>

namespace zeigewerk {

namespace {

/// In bytes: no more than that is unpacked before it is counted.
constexpr qint64 kBuffer = 64 * 1024;

FeedFailure failureOf(const QNetworkReply &reply)
{
    constexpr int kFirstHttpError = 400;
    switch (reply.error()) {
    case QNetworkReply::HostNotFoundError:
        return FeedFailure::HostNotFound;
    case QNetworkReply::SslHandshakeFailedError:
        return FeedFailure::NotSecure;
    case QNetworkReply::TooManyRedirectsError:
    case QNetworkReply::InsecureRedirectError:
    case QNetworkReply::ProtocolUnknownError:
        return FeedFailure::BadRedirect;
    case QNetworkReply::ContentNotFoundError:
    case QNetworkReply::ContentGoneError:
        return FeedFailure::NotFound;
    default:
        break;
    }
    if (reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() >= kFirstHttpError)
        return FeedFailure::ServerError;
    // What does not unpack, or to far more than was sent.
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
    // What is asked of this machine does not leave it.
    if (isLoopback(*url))
        m_network.setProxy(QNetworkProxy::NoProxy);
    m_reply.reset(m_network.get(requestFor(*url)));
    m_reply->setReadBufferSize(kBuffer);
    connect(m_reply.get(), &QNetworkReply::redirected, this, &FeedDownload::redirected);
    connect(m_reply.get(), &QIODevice::readyRead, this, &FeedDownload::dataCame);
    connect(m_reply.get(), &QNetworkReply::finished, this, &FeedDownload::replyFinished);
}

QNetworkRequest FeedDownload::requestFor(const QUrl &url) const
{
    QNetworkRequest request(url);
    request.setSslConfiguration(m_security);
    request.setHeader(QNetworkRequest::UserAgentHeader, m_userAgent);
    // Qt would tell the user's.
    request.setRawHeader("Accept-Language", "*");
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::UserVerifiedRedirectPolicy);
    request.setMaximumRedirectsAllowed(kMostRedirects);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    // One small file gains nothing by it.
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    return request;
}

void FeedDownload::redirected(const QUrl &url)
{
    if (mayLeadTo(m_reply->url(), url))
        Q_EMIT m_reply->redirectAllowed();
    else
        fail(FeedFailure::BadRedirect);
}

void FeedDownload::dataCame()
{
    m_bytes += m_reply->read(kLargestFeed + 1 - m_bytes.size());
    if (m_bytes.size() > kLargestFeed)
        fail(FeedFailure::TooLarge);
}

void FeedDownload::replyFinished()
{
    if (m_reply->error() != QNetworkReply::NoError)
        return fail(failureOf(*m_reply));
    dataCame();
    if (!m_reply)
        return; // it was too large
    const auto items = parseFeed(m_bytes);
    if (items)
        finish(newestItem(*items));
    else
        fail(FeedFailure::NotReadable);
}

void FeedDownload::fail(FeedFailure failure)
{
    finish(failure);
}

void FeedDownload::finish(const FeedAnswer &answer)
{
    if (m_reply) {
        // It may be the one who calls, and hanging up would have it finish once more.
        m_reply->disconnect(this);
        m_reply->abort();
        m_reply.release()->deleteLater();
    }
    Q_EMIT finished(answer);
}

} // namespace zeigewerk
