#pragma once
// Keying through a K1EL Winkeyer 2 on a serial device, in its host protocol: host open (00 02,
// answered by the revision byte), a buffered speed (1C nn) and the text for each message, clear
// buffer (0A) on Esc, host close (00 03) at the end. The keyer's status bytes (110xxxxx) are read
// back: their BUSY bit tells when a message is out.
#include "keyer/deviceio.h"
#include "keyer/keyerbackend.h"

#include <chrono>

namespace hfc {

class WinKeyer : public KeyerBackend {
  public:
    explicit WinKeyer(QString device);
    ~WinKeyer() override;
    WinKeyer(const WinKeyer&) = delete;
    WinKeyer& operator=(const WinKeyer&) = delete;

    void send(const QString& cwcode, qint64 unit, qint64 restoredUnit) override;
    void abort() override;
    bool busy() const override;
    void waitIdle() override;

    int revision() const { return m_revision; } // 0 until the keyer has answered host open

    // How long host open waits for the revision byte.
    static constexpr int kOpenTimeoutMs = 500;

  private:
    using Clock = std::chrono::steady_clock;
    bool ensureOpen();
    bool write(const QByteArray& bytes);
    void readInput() const;

    QString m_device;
    Fd m_fd;
    int m_revision = 0;
    mutable bool m_busy = false;          // a message is queued or being sent
    mutable bool m_sawBusy = false;       // the keyer has reported BUSY for it
    mutable Clock::time_point m_deadline; // a keyer that reports nothing is idle after this
};

} // namespace hfc
