// A small HTTP server on loopback for tests: every request is recorded whole and answered by what the test
// says, byte for byte, so that it can also play servers that misbehave. Lives in the test's own event loop.
#pragma once

#include <QHash>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUrl>

#include <functional>
#include <utility>
#include <vector>

namespace vandrel::test {

struct PeerRequest {
    QByteArray head; // request line and headers
    QByteArray body;
    QByteArray target() const { return head.mid(head.indexOf(' ') + 1).split(' ').value(0); }
    // Value of a header, whatever its case; empty when missing.
    QByteArray header(const QByteArray& name) const {
        for (const QByteArray& line : head.split('\n'))
            if (line.toLower().startsWith(name.toLower() + ':')) return line.mid(name.size() + 1).trimmed();
        return {};
    }
};

inline QByteArray httpAnswer(const QByteArray& body, const QByteArray& type = "text/xml; charset=utf-8",
                             const QByteArray& status = "200 OK") {
    return "HTTP/1.1 " + status + "\r\nContent-Type: " + type +
           "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body;
}

class HttpPeer {
  public:
    // The bytes to send back; empty: the connection is closed without a word.
    std::function<QByteArray(const PeerRequest&)> answer = [](const PeerRequest&) { return httpAnswer({}); };
    bool closes = true;  // after the answer
    bool silent = false; // never answers
    std::vector<PeerRequest> requests;

    HttpPeer() {
        m_server.listen(QHostAddress::LocalHost);
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] {
            while (QTcpSocket* socket = m_server.nextPendingConnection())
                QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] { read(*socket); });
        });
    }
    QString base() const { return QStringLiteral("http://127.0.0.1:%1").arg(m_server.serverPort()); }
    QUrl url(const QString& path = QStringLiteral("/")) const { return QUrl(base() + path); }
    void stop() { m_server.close(); }

  private:
    void read(QTcpSocket& socket) {
        QByteArray& bytes = m_pending[&socket];
        bytes += socket.readAll();
        if (bytes.startsWith('\x16')) return socket.abort(); // somebody wants TLS
        const qsizetype end = bytes.indexOf("\r\n\r\n");
        if (end < 0) return;
        PeerRequest request{bytes.left(end), bytes.mid(end + 4)};
        if (request.body.size() < request.header("Content-Length").toLongLong()) return;
        m_pending.remove(&socket);
        requests.push_back(request);
        if (silent) return;
        socket.write(answer(request));
        if (closes) socket.disconnectFromHost();
    }

    QTcpServer m_server;
    QHash<QTcpSocket*, QByteArray> m_pending;
};

} // namespace vandrel::test
