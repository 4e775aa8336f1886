#pragma once
// A DX cluster on a local port for the tests: it asks for the call as the clusters do, keeps
// what each connection sent, sends what the test gives it and drops the link when told.
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <functional>

namespace hfc::test {

// Runs the event loop until done() or the time is up; false when it timed out.
inline bool waitFor(const std::function<bool()>& done, int ms = 5000) {
    QElapsedTimer t;
    t.start();
    while (!done()) {
        if (t.elapsed() > ms) return false;
        QEventLoop loop;
        QTimer::singleShot(5, &loop, &QEventLoop::quit);
        loop.exec();
    }
    return true;
}

// Lets the event loop run for ms milliseconds.
inline void spin(int ms) {
    waitFor([] { return false; }, ms);
}

struct ClusterServer {
    QTcpServer server;
    QTcpSocket* client = nullptr; // the newest connection
    int connections = 0;
    QStringList received; // lines from every connection, in order
    // Sent on each new connection: a telnet option offer, then the prompt without a line end.
    QByteArray greeting = QByteArray("\xff\xfb\x01", 3) + "Please enter your call: ";

    ClusterServer() {
        listen(0);
        QObject::connect(&server, &QTcpServer::newConnection, &server, [this] {
            while (QTcpSocket* s = server.nextPendingConnection()) {
                client = s;
                ++connections;
                auto* buffer = new QByteArray;
                QObject::connect(s, &QObject::destroyed, [buffer] { delete buffer; });
                QObject::connect(s, &QTcpSocket::readyRead, s, [this, s, buffer] {
                    buffer->append(s->readAll());
                    qsizetype nl;
                    while ((nl = buffer->indexOf('\n')) >= 0) {
                        received << QString::fromUtf8(buffer->left(nl)).remove('\r');
                        buffer->remove(0, nl + 1);
                    }
                });
                s->write(greeting);
            }
        });
    }
    bool listen(quint16 port) { return server.listen(QHostAddress::LocalHost, port); }
    QString address() const { return QStringLiteral("127.0.0.1:%1").arg(server.serverPort()); }
    void send(const QByteArray& bytes) {
        if (client) client->write(bytes);
    }
    void drop() {
        if (client) client->abort();
        client = nullptr;
    }
};

} // namespace hfc::test
