#pragma once
// Keying through cwdaemon over UDP. Requests as its manual gives them: <ESC>2 sets the speed,
// plain text is sent, <ESC>4 aborts; each message is preceded by an <ESC>h echo request, whose
// reply tells when the message is out.
#include "keyer/deviceio.h"
#include "keyer/keyerbackend.h"

#include <QByteArray>

#include <chrono>

namespace hfc {

class CwDaemonKeyer : public KeyerBackend {
  public:
    CwDaemonKeyer(QString host, quint16 port);

    void send(const QString& cwcode, qint64 unit, qint64 restoredUnit) override;
    void abort() override;
    bool busy() const override;
    void waitIdle() override;

    // Waits up to timeoutMs for the daemon's next reply; true when one came (see lastReply()).
    bool waitForReply(int timeoutMs);
    QByteArray lastReply() const { return m_lastReply; }

  private:
    using Clock = std::chrono::steady_clock;
    bool ensureSocket();
    bool request(const QByteArray& datagram);
    void readReplies() const;

    QString m_host;
    quint16 m_port;
    Fd m_fd;
    quint32 m_serial = 0;
    // Replies arrive whenever the daemon finishes; busy() and waitIdle() read them.
    mutable QByteArray m_expected; // the echo that ends the message being sent; empty: idle
    mutable QByteArray m_lastReply;
    mutable bool m_refusedShown = false;
    mutable Clock::time_point m_deadline; // a daemon that never answers does not stay "busy"
};

} // namespace hfc
