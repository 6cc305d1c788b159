#include "feed_server.h"

#include <QFile>
#include <QHostAddress>
#include <QSslConfiguration>
#include <QSslKey>
#include <QTimer>

#include <chrono>

namespace zeigewerk::test {

using namespace std::chrono_literals;

namespace {

QByteArray certificateFile(const QString &name)
{
    QFile file(QStringLiteral(ZEIGEWERK_CERTIFICATES "/") + name);
    if (!file.open(QFile::ReadOnly))
        qFatal("cannot read the certificate %s", qPrintable(file.fileName()));
    return file.readAll();
}

std::unique_ptr<QTcpServer> makeServer(Identity identity)
{
    if (identity == Identity::None)
        return std::make_unique<QTcpServer>();
    const QString name =
        identity == Identity::Loopback ? QStringLiteral("loopback") : QStringLiteral("elsewhere");
    QSslConfiguration security = QSslConfiguration::defaultConfiguration();
    security.setLocalCertificate(QSslCertificate(certificateFile(name + QStringLiteral(".pem"))));
    security.setPrivateKey(QSslKey(certificateFile(name + QStringLiteral(".key")), QSsl::Ec));
    auto server = std::make_unique<QSslServer>();
    server->setSslConfiguration(security);
    return server;
}

QByteArray headOf(const QByteArray &status, qint64 size, const QByteArray &header)
{
    return "HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(size) + "\r\n" + header +
           "\r\n";
}

} // namespace

QSslCertificate testAuthority()
{
    return QSslCertificate(certificateFile(QStringLiteral("authority.pem")));
}

FeedServer::FeedServer(Identity identity)
    : m_server(makeServer(identity))
    , m_isSecure(identity != Identity::None)
{
    connect(m_server.get(), &QTcpServer::pendingConnectionAvailable, this, &FeedServer::accept);
    if (!m_server->listen(QHostAddress::LocalHost))
        qFatal("cannot start the server: %s", qPrintable(m_server->errorString()));
}

FeedServer::~FeedServer()
{
    for (auto *socket : m_connections.keys())
        socket->disconnect(this);
}

QString FeedServer::address(const QString &path) const
{
    const QString scheme = m_isSecure ? QStringLiteral("https") : QStringLiteral("http");
    return QStringLiteral("%1://127.0.0.1:%2%3").arg(scheme, QString::number(m_server->serverPort()), path);
}

void FeedServer::serve(const QString &path, const QByteArray &body, const QByteArray &header)
{
    m_answers[path] = [body, header](QTcpSocket &socket) {
        socket.write(headOf("200 OK", body.size(), header) + body);
    };
}

void FeedServer::serveStatus(const QString &path, const QByteArray &status, const QByteArray &header)
{
    m_answers[path] = [status, header](QTcpSocket &socket) { socket.write(headOf(status, 0, header)); };
}

void FeedServer::serveRedirect(const QString &path, const QString &to)
{
    serveStatus(path, "302 Found", "Set-Cookie: seen=1\r\nLocation: " + to.toUtf8() + "\r\n");
}

void FeedServer::serveManyBytes(const QString &path, qint64 bytes)
{
    m_answers[path] = [this, bytes](QTcpSocket &socket) {
        socket.write(headOf("200 OK", bytes, {}));
        connect(&socket, &QTcpSocket::bytesWritten, this,
                [this, &socket, bytes] { sendManyBytes(socket, bytes); });
    };
}

void FeedServer::sendManyBytes(QTcpSocket &socket, qint64 bytes)
{
    constexpr qint64 kChunk = qint64{64} * 1024;
    if (socket.bytesToWrite() > 0 || m_bytesSent >= bytes)
        return;
    const qint64 size = qMin(kChunk, bytes - m_bytesSent);
    m_bytesSent += size;
    socket.write(QByteArray(size, ' '));
}

void FeedServer::serveSlowly(const QString &path)
{
    m_answers[path] = [](QTcpSocket &socket) {
        socket.write(headOf("200 OK", 1000, {}));
        auto *timer = new QTimer(&socket);
        timer->callOnTimeout(&socket, [&socket] { socket.write(" "); });
        timer->start(10ms);
    };
}

void FeedServer::serveDisconnect(const QString &path, const QByteArray &begin)
{
    m_answers[path] = [begin](QTcpSocket &socket) {
        socket.write(headOf("200 OK", begin.size() + 1, {}) + begin);
        socket.disconnectFromHost();
    };
}

void FeedServer::serveLater(const QString &path)
{
    m_answers[path] = [](QTcpSocket &) {};
}

void FeedServer::answerWaiting(const QByteArray &body)
{
    for (QTcpSocket *socket : m_connections.keys())
        socket->write(headOf("200 OK", body.size(), {}) + body);
}

void FeedServer::accept()
{
    while (QTcpSocket *socket = m_server->nextPendingConnection()) {
        m_connections[socket];
        connect(socket, &QTcpSocket::disconnected, this, [this, socket] { m_connections.remove(socket); });
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { read(*socket); });
        read(*socket);
    }
}

void FeedServer::read(QTcpSocket &socket)
{
    QByteArray &request = m_connections[&socket];
    request += socket.readAll();
    if (!request.endsWith("\r\n\r\n"))
        return;
    m_requests.append(std::exchange(request, {}));
    const QString path = QString::fromLatin1(m_requests.back().split(' ').value(1));
    if (const auto answer = m_answers.constFind(path); answer != m_answers.constEnd())
        (*answer)(socket);
    else
        socket.write(headOf("404 Not Found", 0, {}));
}

} // namespace zeigewerk::test
