#pragma once
// The FT-1000MP's CAT line: the five-byte command blocks go out on a serial port at the
// transceiver's settings (4800 baud, 8 data bits, no parity, 2 stop bits). The port is opened
// at the first block and kept.
#include <QByteArray>
#include <QSerialPort>
#include <QString>

namespace hfc {

class Ft1000mpLine {
  public:
    explicit Ft1000mpLine(const QString& device) : device_(device) {}
    const QString& device() const { return device_; }
    // False, with a Russian reason, when the block did not go out.
    bool send(const QByteArray& block, QString& why);

  private:
    QString device_;
    QSerialPort port_;
};

} // namespace hfc
