#include "web_server.h"

#include "rig_error.h"

#include <QTcpSocket>

namespace zeigewerk::rig {

WebServer::WebServer(const QByteArray &page)
    : m_page(page)
{
    connect(&m_server, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket *socket = m_server.nextPendingConnection()) {
            connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] { answer(*socket); });
        }
    });
    if (!m_server.listen(QHostAddress::LocalHost))
        failRig(QStringLiteral("the web server does not start: %1").arg(m_server.errorString()));
}

QString WebServer::address() const
{
    return QStringLiteral("http://127.0.0.1:%1/").arg(m_server.serverPort());
}

void WebServer::answer(QTcpSocket &socket)
{
    // Requests are small enough to arrive in one piece.
    if (!socket.readAll().endsWith("\r\n\r\n"))
        return;
    ++m_requests;
    socket.write("HTTP/1.1 200 OK\r\nConnection: close\r\nContent-Length: " +
                 QByteArray::number(m_page.size()) + "\r\n\r\n" + m_page);
    socket.disconnectFromHost();
}

} // namespace zeigewerk::rig
