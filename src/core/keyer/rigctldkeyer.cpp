#include "keyer/rigctldkeyer.h"

#include "keyer/morsetext.h"

#include <algorithm>
#include <sys/socket.h>

namespace hfc {

RigctldKeyer::RigctldKeyer(QString host, quint16 port) : m_host(std::move(host)), m_port(port) {}

bool RigctldKeyer::ensureConnected() {
    if (m_lost) {
        m_fd.reset();
        m_awaiting.clear();
        m_partial.clear();
        m_lost = false;
        m_wpm = 0;
    }
    if (m_fd.valid()) return true;
    if (m_host.isEmpty()) {
        reportError(QStringLiteral("Не задан адрес rigctld ([rig] rigctld)"));
        return false;
    }
    m_fd = connectTcp(m_host, m_port, kConnectTimeoutMs);
    if (!m_fd.valid())
        reportError(QStringLiteral("rigctld %1:%2 не отвечает").arg(m_host).arg(m_port));
    return m_fd.valid();
}

bool RigctldKeyer::command(Cmd cmd, const QByteArray& line) {
    if (!writeAll(m_fd.get(), line + '\n')) {
        m_lost = true;
        reportError(QStringLiteral("rigctld %1:%2: связь потеряна").arg(m_host).arg(m_port));
        return false;
    }
    m_awaiting.push_back(cmd);
    return true;
}

void RigctldKeyer::send(const QString& cwcode, qint64 unit, qint64 restoredUnit) {
    Q_UNUSED(restoredUnit); // the radio keys PTT itself (break-in)
    readAnswers();
    if (!ensureConnected()) return;
    const QString text = textForCwCode(cwcode, kRigAlphabet).trimmed();
    if (text.isEmpty()) return;
    const int wpm = deviceWpm(unit, 5, 60);
    if (wpm != m_wpm) {
        if (!command(Cmd::Speed, "L KEYSPD " + QByteArray::number(wpm))) return;
        m_wpm = wpm;
    }
    if (!command(Cmd::Morse, "b " + text.toLatin1())) return;
    const auto now = Clock::now();
    const auto seconds = std::chrono::duration<double>(1.2 / wpm * double(unitsOfCwCode(cwcode)));
    m_end = std::max(m_end, now) + std::chrono::duration_cast<Clock::duration>(seconds);
}

void RigctldKeyer::abort() {
    m_end = Clock::now();
    if (m_fd.valid() && !m_lost) command(Cmd::Stop, "\\stop_morse");
}

void RigctldKeyer::readAnswers() const {
    if (!m_fd.valid() || m_lost) return;
    char buf[512];
    for (;;) {
        const ssize_t n = ::recv(m_fd.get(), buf, sizeof buf, MSG_DONTWAIT);
        if (n == 0) {
            m_lost = true; // the daemon went away; the next message connects again
            return;
        }
        if (n < 0) return;
        m_partial.append(buf, n);
    }
}

bool RigctldKeyer::busy() const {
    readAnswers();
    // Parse whole lines here rather than in readAnswers, which loops until the socket is empty.
    for (qsizetype nl = m_partial.indexOf('\n'); nl >= 0; nl = m_partial.indexOf('\n')) {
        const QByteArray line = m_partial.left(nl).trimmed();
        m_partial.remove(0, nl + 1);
        if (!line.startsWith("RPRT ")) continue;
        const int code = line.mid(5).toInt();
        m_replies.push_back(code);
        const Cmd cmd = m_awaiting.empty() ? Cmd::Morse : m_awaiting.front();
        if (!m_awaiting.empty()) m_awaiting.pop_front();
        // A radio whose keyer cannot be stopped or set answers with an error too; only a message
        // that was not sent is worth a word to the operator.
        if (code < 0 && cmd == Cmd::Morse)
            reportError(QStringLiteral("Радио не передаёт CW через rigctld (RPRT %1)").arg(code));
    }
    return Clock::now() < m_end;
}

void RigctldKeyer::waitIdle() {
    while (busy()) {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(m_end - Clock::now());
        if (m_fd.valid()) waitReadable(m_fd.get(), int(std::clamp<qint64>(left.count(), 1, 1000)));
    }
    // The answers to what was sent, so that an error shows up with the message it belongs to.
    while (!m_awaiting.empty() && m_fd.valid() && !m_lost && waitReadable(m_fd.get(), 1000)) busy();
}

} // namespace hfc
