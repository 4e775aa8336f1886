#include "keyer/serialkeyport.h"

#include <QSerialPort>

namespace hfc {

QStringList SerialKeyPort::defaultDevices() {
    return {QStringLiteral("/dev/ttyS0"), QStringLiteral("/dev/ttyS1"),
            QStringLiteral("/dev/ttyS2"), QStringLiteral("/dev/ttyS3")};
}

SerialKeyPort::SerialKeyPort(QStringList devices) : m_devices(std::move(devices)) {}

SerialKeyPort::~SerialKeyPort() {
    SerialKeyPort::close(); // this class's own close: no override can run in a destructor
}

void SerialKeyPort::setDevices(const QStringList& devices) {
    std::lock_guard lock(m_devicesMutex);
    m_devices = devices;
}

QStringList SerialKeyPort::devices() const {
    std::lock_guard lock(m_devicesMutex);
    return m_devices;
}

bool SerialKeyPort::open(int commPort) {
    const QStringList list = devices();
    if (commPort < 1 || commPort > list.size()) return false;
    close();
    auto port = std::make_unique<QSerialPort>();
    port->setPortName(list.at(commPort - 1));
    port->setFlowControl(QSerialPort::NoFlowControl);
    // QSerialPort takes a lock file and exclusive access, so a port held by another program fails.
    // Write-only: nothing is read, so no read notifier is needed on the keying thread.
    if (!port->open(QIODevice::WriteOnly)) return false;
    // Linux raises DTR and RTS when a tty opens; drop them before the transmitter notices.
    port->setDataTerminalReady(false);
    port->setRequestToSend(false);
    m_port = std::move(port);
    m_clock.restart();
    return true;
}

void SerialKeyPort::close() {
    if (!m_port) return;
    m_port->close();
    m_port.reset();
}

bool SerialKeyPort::isOpen() const {
    return m_port && m_port->isOpen();
}

bool SerialKeyPort::setRts(bool on) {
    return isOpen() && m_port->setRequestToSend(on);
}

bool SerialKeyPort::setDtr(bool on) {
    return isOpen() && m_port->setDataTerminalReady(on);
}

bool SerialKeyPort::wait(qint64 iterations, const std::atomic<bool>& abort) {
    return m_clock.wait(iterations, abort);
}

} // namespace hfc
