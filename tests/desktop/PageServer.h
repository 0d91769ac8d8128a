#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QTcpServer>
#include <QTcpSocket>

namespace quillon {

/// A small server of pages on this machine, which stands for the world outside
/// and remembers who has called.
class PageServer {
public:
    PageServer() {
        server_.listen(QHostAddress::LocalHost);
        QObject::connect(&server_, &QTcpServer::newConnection, [this] { take(); });
    }

    QString address(const char* path = "/") const {
        return QStringLiteral("http://127.0.0.1:%1%2")
            .arg(server_.serverPort())
            .arg(QString::fromLatin1(path));
    }
    int port() const { return server_.serverPort(); }

    int connections = 0;
    /// First lines of the requests: "GET / HTTP/1.1".
    QList<QByteArray> requests;
    /// Paths that lie elsewhere, and where.
    QMap<QByteArray, QByteArray> redirects;
    QByteArray page =
        "<title>Outside</title><body style='background:#345678'>"
        "<img src='/picture.png'>";

private:
    void take() {
        while (QTcpSocket* socket = server_.nextPendingConnection()) {
            ++connections;
            QObject::connect(socket, &QTcpSocket::readyRead, socket,
                             [this, socket] { answer(*socket); });
            QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        }
    }
    void answer(QTcpSocket& socket) {
        const QByteArray request = socket.readAll();
        requests << request.left(request.indexOf('\r'));
        if (const QByteArray path = requests.back().split(' ').value(1); redirects.contains(path)) {
            socket.write(
                "HTTP/1.1 302 Found\r\nConnection: close\r\nContent-Length: 0\r\nLocation: " +
                redirects[path] + "\r\n\r\n");
            socket.disconnectFromHost();
            return;
        }
        const QByteArray body = requests.back().startsWith("GET / ") ? page : QByteArray("none");
        socket.write(
            "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nConnection: close\r\n"
            "Content-Length: " +
            QByteArray::number(body.size()) + "\r\n\r\n" + body);
        socket.disconnectFromHost();
    }

    QTcpServer server_;
};

}  // namespace quillon
