// A web server on this machine.
#pragma once

#include <QByteArray>
#include <QObject>
#include <QTcpServer>

namespace zeigewerk::rig {

/// Answers every request with the same page over plain HTTP while the event loop runs.
class WebServer : public QObject
{
    Q_OBJECT

public:
    /// Throws RigError if it cannot listen.
    explicit WebServer(const QByteArray &page);

    void setPage(const QByteArray &page) { m_page = page; }
    QString address() const;
    int requests() const { return m_requests; }

private:
    void answer(QTcpSocket &socket);

    QTcpServer m_server;
    QByteArray m_page;
    int m_requests = 0;
};

} // namespace zeigewerk::rig
