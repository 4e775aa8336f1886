#include "station/ft1000mp.h"

namespace hfc {

bool Ft1000mpLine::send(const QByteArray& block, QString& why) {
    if (!port_.isOpen()) {
        port_.setPortName(device_);
        port_.setBaudRate(4800);
        port_.setDataBits(QSerialPort::Data8);
        port_.setParity(QSerialPort::NoParity);
        port_.setStopBits(QSerialPort::TwoStop);
        port_.setFlowControl(QSerialPort::NoFlowControl);
        if (!port_.open(QIODevice::WriteOnly)) {
            why = QStringLiteral("Порт %1 не открывается: %2").arg(device_, port_.errorString());
            return false;
        }
    }
    // Five bytes at 4800 baud take about 12 ms; the wait only covers a stuck driver.
    if (port_.write(block) != block.size() || !port_.waitForBytesWritten(200)) {
        why = QStringLiteral("Порт %1: команда не передана (%2)").arg(device_, port_.errorString());
        port_.close(); // opened again at the next block
        return false;
    }
    return true;
}

} // namespace hfc
