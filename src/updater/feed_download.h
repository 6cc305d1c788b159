#pragma once

#include "updater/feed_answer.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QSslConfiguration>

#include <memory>

namespace zeigewerk {

/// Requests a feed once, and stores nothing: no cookies, no cache, no passwords. The user agent is all that
/// it tells about us. It has no time limit; the caller sets one.
class FeedDownload : public QObject
{
    Q_OBJECT

public:
    /// In bytes, after unpacking. Feeds have some ten thousand.
    static constexpr qint64 kLargestFeed = qint64{1024} * 1024;
    static constexpr int kMaxRedirects = 5;

    /// `security` says, above all, which certificates are trusted.
    explicit FeedDownload(const QByteArray &userAgent,
                          const QSslConfiguration &security = QSslConfiguration::defaultConfiguration());
    ~FeedDownload() override;

    /// Starts the request. Call it only once.
    void start(const QString &address);

Q_SIGNALS:
    /// Emitted once, from the event loop or from within `start`.
    void finished(const FeedAnswer &answer);

private:
    QNetworkRequest requestFor(const QUrl &url) const;
    void ask(const QUrl &url);
    void redirect(const QUrl &url);
    void readData();
    void replyFinished();
    void finish(const FeedAnswer &answer);
    void dropReply();

    QByteArray m_userAgent;
    QSslConfiguration m_security;
    QNetworkAccessManager m_network;
    /// Null before and after the transfer.
    std::unique_ptr<QNetworkReply> m_reply;
    int m_redirects = 0;
    QByteArray m_bytes;
};

} // namespace zeigewerk
