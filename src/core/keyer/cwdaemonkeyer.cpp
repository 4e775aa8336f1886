#include "keyer/cwdaemonkeyer.h"

#include "keyer/morsetext.h"

#include <algorithm>
#include <cerrno>
#include <sys/socket.h>

namespace hfc {

namespace {

constexpr char kEsc = '\x1b';
// cwdaemon plays one datagram as one message and keeps a few hundred bytes of it.
constexpr qsizetype kChunk = 200;

} // namespace

CwDaemonKeyer::CwDaemonKeyer(QString host, quint16 port) : m_host(std::move(host)), m_port(port) {}

bool CwDaemonKeyer::ensureSocket() {
    if (m_fd.valid()) return true;
    m_fd = connectUdp(m_host, m_port);
    if (!m_fd.valid())
        reportError(QStringLiteral("cwdaemon: неверный адрес %1:%2").arg(m_host).arg(m_port));
    return m_fd.valid();
}

bool CwDaemonKeyer::request(const QByteArray& datagram) {
    if (::send(m_fd.get(), datagram.constData(), size_t(datagram.size()), MSG_NOSIGNAL) >= 0)
        return true;
    // A connected UDP socket learns from the ICMP answer that nobody listens on the port.
    if (errno == ECONNREFUSED && !m_refusedShown) {
        m_refusedShown = true;
        reportError(QStringLiteral("cwdaemon %1:%2 не отвечает").arg(m_host).arg(m_port));
    }
    return false;
}

void CwDaemonKeyer::send(const QString& cwcode, qint64 unit, qint64 restoredUnit) {
    Q_UNUSED(restoredUnit); // the daemon keys PTT itself, with its own tail
    if (!ensureSocket()) return;
    readReplies(); // an earlier refusal is reported before this message is tried
    const QString text = textForCwCode(cwcode, kCwdaemonAlphabet);
    if (text.trimmed().isEmpty()) return;
    const int wpm = deviceWpm(unit, 4, 60);
    // The speed is sent with every message: the key's factor changes it, and another program
    // may have changed the daemon's.
    if (!request(QByteArray(1, kEsc) + '2' + QByteArray::number(wpm))) return;
    const QByteArray token = "hfc" + QByteArray::number(++m_serial);
    const QByteArray ascii = text.toLatin1();
    for (qsizetype at = 0; at < ascii.size(); at += kChunk) {
        const bool last = at + kChunk >= ascii.size();
        // The echo is asked for the last part: the daemon answers once that has been played.
        if (last && !request(QByteArray(1, kEsc) + 'h' + token)) return;
        if (!request(ascii.mid(at, kChunk))) return;
    }
    m_expected = 'h' + token;
    m_refusedShown = false;
    const auto unitTime = std::chrono::duration<double>(1.2 / wpm);
    const auto expected = unitTime * double(unitsOfCwCode(cwcode));
    // Several messages queue in the daemon: the latest echo ends them all.
    m_deadline = Clock::now() + std::chrono::duration_cast<Clock::duration>(expected * 1.5) +
                 std::chrono::seconds(2);
}

void CwDaemonKeyer::abort() {
    if (!m_fd.valid()) return;
    request(QByteArray(1, kEsc) + '4');
    m_expected.clear();
}

void CwDaemonKeyer::readReplies() const {
    if (!m_fd.valid()) return;
    char buf[512];
    for (;;) {
        const ssize_t n = ::recv(m_fd.get(), buf, sizeof buf, MSG_DONTWAIT);
        if (n < 0) {
            if (errno == ECONNREFUSED && !m_refusedShown) {
                m_refusedShown = true;
                m_expected.clear();
                reportError(QStringLiteral("cwdaemon %1:%2 не отвечает").arg(m_host).arg(m_port));
            }
            return;
        }
        m_lastReply = QByteArray(buf, n).trimmed();
        if (m_lastReply == m_expected) m_expected.clear();
    }
}

bool CwDaemonKeyer::busy() const {
    readReplies();
    if (!m_expected.isEmpty() && Clock::now() > m_deadline) m_expected.clear();
    return !m_expected.isEmpty();
}

void CwDaemonKeyer::waitIdle() {
    while (busy()) {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(m_deadline - Clock::now());
        waitReadable(m_fd.get(), int(std::clamp<qint64>(left.count(), 1, 1000)));
    }
}

bool CwDaemonKeyer::waitForReply(int timeoutMs) {
    if (!m_fd.valid() || !waitReadable(m_fd.get(), timeoutMs)) return false;
    const QByteArray before = m_lastReply;
    m_lastReply.clear();
    readReplies();
    if (!m_lastReply.isEmpty()) return true;
    m_lastReply = before;
    return false;
}

} // namespace hfc
