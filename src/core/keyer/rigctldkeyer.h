#pragma once
// Keying through the radio's own keyer with Hamlib's rigctld: "L KEYSPD n" sets the speed, "b
// TEXT" sends, "\stop_morse" stops. The daemon answers each command with "RPRT n"; it does not
// tell when the radio has finished, so a message counts as out when its time at the speed is up.
// Self-contained on purpose: the keyer has its own connection beside the rig link's.
#include "keyer/deviceio.h"
#include "keyer/keyerbackend.h"

#include <QByteArray>
#include <QList>

#include <chrono>
#include <deque>

namespace hfc {

class RigctldKeyer : public KeyerBackend {
  public:
    RigctldKeyer(QString host, quint16 port);

    void send(const QString& cwcode, qint64 unit, qint64 restoredUnit) override;
    void abort() override;
    bool busy() const override;
    void waitIdle() override;

    // The "RPRT" answers read so far, oldest first (each "b", "L" or "\stop_morse" has one).
    QList<int> replies() const { return m_replies; }

    static constexpr int kConnectTimeoutMs = 1000;

  private:
    using Clock = std::chrono::steady_clock;
    enum class Cmd { Speed, Morse, Stop };
    bool ensureConnected();
    bool command(Cmd cmd, const QByteArray& line);
    void readAnswers() const;

    QString m_host;
    quint16 m_port;
    Fd m_fd;
    int m_wpm = 0; // the speed last set on the radio
    mutable std::deque<Cmd> m_awaiting;
    mutable QByteArray m_partial;
    mutable QList<int> m_replies;
    mutable bool m_lost = false;
    Clock::time_point m_end; // when the messages sent so far should be out
};

} // namespace hfc
