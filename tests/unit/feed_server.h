// A web server on this machine for one test.
#pragma once

#include "feed_text.h"

#include <QMap>
#include <QSslServer>
#include <QTcpSocket>

#include <functional>
#include <memory>

namespace zeigewerk::test {

/// Whom a server says it is; the certificates are those of `certificates/`.
enum class Identity {
    None,      ///< plain HTTP
    Loopback,  ///< the one that it is
    Elsewhere, ///< another one
};

/// The certificate of the authority that has signed for all of them.
QSslCertificate testAuthority();

class FeedServer : public QObject
{
    Q_OBJECT

public:
    explicit FeedServer(Identity identity = Identity::None);
    ~FeedServer() override;

    /// The address of that path: "/feed".
    QString address(const QString &path) const;

    // What there is at a path; everywhere else there is nothing (404).

    void serve(const QString &path, const QByteArray &body, const QByteArray &header = {});
    /// An answer with that status, as "503 Busy".
    void serveStatus(const QString &path, const QByteArray &status, const QByteArray &header = {});
    void serveRedirect(const QString &path, const QString &to);
    /// As much of that as the client takes.
    void serveMany(const QString &path, qint64 bytes);
    /// A byte now and then, for as long as the client waits.
    void serveSlowly(const QString &path);
    /// Hangs up, after that much of an answer that promised more.
    void serveHangingUp(const QString &path, const QByteArray &begin);
    /// Takes the request, and answers it when it is told to.
    void serveNothing(const QString &path);
    /// Answers whoever waits.
    void answerWaiting(const QByteArray &body);

    /// What clients asked for, header and all, in the order in which they came.
    const QList<QByteArray> &requests() const { return m_requests; }
    /// The body bytes that were handed over to the system for `serveMany`.
    qint64 bytesSent() const { return m_bytesSent; }
    int openConnections() const { return static_cast<int>(m_connections.size()); }

private:
    using Answer = std::function<void(QTcpSocket &)>;

    void accept();
    void read(QTcpSocket &socket);
    void sendMany(QTcpSocket &socket, qint64 bytes);

    std::unique_ptr<QTcpServer> m_server;
    bool m_isSecure;
    QMap<QString, Answer> m_answers;
    QList<QByteArray> m_requests;
    QMap<QTcpSocket *, QByteArray> m_connections;
    qint64 m_bytesSent = 0;
};

} // namespace zeigewerk::test
