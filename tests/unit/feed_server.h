// A local web server for one test.
#pragma once

#include "feed_text.h"

#include <QMap>
#include <QSslServer>
#include <QTcpSocket>

#include <functional>
#include <memory>

namespace zeigewerk::test {

/// The server that the certificate names; the certificates are in `certificates/`.
enum class Identity {
    None,      ///< no certificate: plain HTTP
    Loopback,  ///< this server
    Elsewhere, ///< another server
};

/// The certificate of the authority that signed the others.
QSslCertificate testAuthority();

class FeedServer : public QObject
{
    Q_OBJECT

public:
    explicit FeedServer(Identity identity = Identity::None);
    ~FeedServer() override;

    /// The URL of a path such as "/feed".
    QString address(const QString &path) const;

    // What the server answers at a path; it answers 404 at all others.

    void serve(const QString &path, const QByteArray &body, const QByteArray &header = {});
    /// An empty answer with that status, such as "503 Busy".
    void serveStatus(const QString &path, const QByteArray &status, const QByteArray &header = {});
    void serveRedirect(const QString &path, const QString &to);
    /// That many bytes, as far as the client reads them.
    void serveManyBytes(const QString &path, qint64 bytes);
    /// One byte at a time, for as long as the client waits.
    void serveSlowly(const QString &path);
    /// The beginning of an answer that is one byte longer; then the server disconnects.
    void serveDisconnect(const QString &path, const QByteArray &begin);
    /// Accepts the request without an answer until answerWaiting().
    void serveLater(const QString &path);
    /// Answers all waiting requests.
    void answerWaiting(const QByteArray &body);

    /// The requests with their headers, oldest first.
    const QList<QByteArray> &requests() const { return m_requests; }
    /// The number of body bytes that serveManyBytes() has handed to the system.
    qint64 bytesSent() const { return m_bytesSent; }
    int openConnections() const { return static_cast<int>(m_connections.size()); }

private:
    using Answer = std::function<void(QTcpSocket &)>;

    void accept();
    void read(QTcpSocket &socket);
    void sendManyBytes(QTcpSocket &socket, qint64 bytes);

    std::unique_ptr<QTcpServer> m_server;
    bool m_isSecure;
    QMap<QString, Answer> m_answers;
    QList<QByteArray> m_requests;
    QMap<QTcpSocket *, QByteArray> m_connections;
    qint64 m_bytesSent = 0;
};

} // namespace zeigewerk::test
