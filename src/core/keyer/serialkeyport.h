#pragma once
// The key port on a real serial device: DTR keys, RTS is PTT; no bytes are ever written.
#include "keyer/keyport.h"
#include "keyer/unitclock.h"

#include <QStringList>

#include <memory>
#include <mutex>

class QSerialPort;

namespace hfc {

// The QSerialPort is created by open() and destroyed by close(), so it lives on the thread that
// keys (the keyer's worker); all KeyPort calls must come from that one thread. setDevices() may be
// called from any thread.
class SerialKeyPort : public KeyPort {
  public:
    // COM1..COM4 of the panel, in order.
    static QStringList defaultDevices();

    explicit SerialKeyPort(QStringList devices = defaultDevices());
    ~SerialKeyPort() override;

    void setDevices(const QStringList& devices);
    QStringList devices() const;

    bool open(int commPort) override;
    void close() override;
    bool isOpen() const override;
    bool setRts(bool on) override;
    bool setDtr(bool on) override;
    bool wait(qint64 iterations, const std::atomic<bool>& abort) override;
    bool needsChoice() const override { return true; }

  private:
    mutable std::mutex m_devicesMutex;
    QStringList m_devices;
    std::unique_ptr<QSerialPort> m_port;
    UnitClock m_clock;
};

} // namespace hfc
