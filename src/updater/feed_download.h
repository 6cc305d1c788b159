#pragma once

#include "updater/feed_answer.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QSslConfiguration>

#include <memory>

namespace zeigewerk {

/// Asks for a feed once, and keeps nothing of it: no cookies, no cache, no passwords. Told of us is the user
/// agent alone. How long it takes is not bounded here: whoever waits knows how long.
class FeedDownload : public QObject
{
    Q_OBJECT

public:
    /// In bytes, after unpacking; feeds have some ten thousand.
    static constexpr qint64 kLargestFeed = qint64{1024} * 1024;
    static constexpr int kMostRedirects = 5;

    /// `security` says, above all, whose certificates are believed.
    explicit FeedDownload(const QByteArray &userAgent,
                          const QSslConfiguration &security = QSslConfiguration::defaultConfiguration());
    ~FeedDownload() override;

    /// Begins to ask; to be called once.
    void start(const QString &address);

Q_SIGNALS:
    /// Once, from the event loop or from within `start`.
    void finished(const FeedAnswer &answer);

private:
    QNetworkRequest requestFor(const QUrl &url) const;
    void ask(const QUrl &url);
    void redirect(const QUrl &url);
    void dataCame();
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
