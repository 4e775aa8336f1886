#include "keyer/keyer.h"

#include "keyer/unitclock.h"

#include <algorithm>

#include <pthread.h>
#include <sched.h>

namespace hfc {

namespace {

// Keying is timing: a busy program on the same cores would otherwise hold the key line for a
// whole scheduler slice (several milliseconds) and garble the code. The keyer thread asks for a
// real-time slot; that is granted to root or under an rtprio limit (as audio programs get), and
// otherwise the thread keeps the normal policy.
void preferRealTime() {
    sched_param p{};
    p.sched_priority = std::min(10, sched_get_priority_max(SCHED_FIFO));
    pthread_setschedparam(pthread_self(), SCHED_FIFO, &p);
}

} // namespace

Keyer::Keyer(std::shared_ptr<KeyPort> port) : m_port(std::move(port)) {
    // The serial port is opened write-only, so it needs no event dispatcher on this thread.
    m_thread = std::thread([this] { run(); });
}

Keyer::~Keyer() {
    Keyer::abort(); // this class's own: no override can run in a destructor
    {
        std::lock_guard lock(m_mutex);
        m_stop = true;
    }
    m_wake.notify_all();
    m_thread.join();
}

double Keyer::wpmForBar(int value) {
    return wpmForUnit(unitForBar(value));
}

void Keyer::setCommPort(int commPort) {
    m_commPort = commPort;
}

int Keyer::commPort() const {
    return m_commPort;
}

void Keyer::setPortErrorHandler(std::function<void()> handler) {
    std::lock_guard lock(m_mutex);
    m_onPortError = std::move(handler);
}

void Keyer::send(const QString& cwcode, qint64 unit, qint64 restoredUnit) {
    {
        std::lock_guard lock(m_mutex);
        m_queue.push_back({cwcode, unit, restoredUnit, m_commPort.load()});
    }
    m_wake.notify_all();
}

void Keyer::abort() {
    {
        std::lock_guard lock(m_mutex);
        m_queue.clear();
        m_releasePending = true;
        m_abort = true;
    }
    m_wake.notify_all();
}

void Keyer::waitIdle() {
    std::unique_lock lock(m_mutex);
    m_idle.wait(lock, [this] { return !busyLocked(); });
}

bool Keyer::busy() const {
    std::lock_guard lock(m_mutex);
    return busyLocked();
}

void Keyer::run() {
    preferRealTime();
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_wake.wait(lock, [this] { return m_stop || m_releasePending || !m_queue.empty(); });
        if (m_releasePending) {
            // The aborted message (if any) has returned by now, so the flag can be cleared for the
            // messages queued after the abort.
            m_releasePending = false;
            m_abort = false;
            m_sending = true;
            lock.unlock();
            releaseLines();
            lock.lock();
        } else if (!m_queue.empty()) {
            const Message message = m_queue.front();
            m_queue.pop_front();
            m_sending = true;
            lock.unlock();
            const Outcome outcome = play(message);
            lock.lock();
            if (outcome == Outcome::PortError) {
                const auto handler = m_onPortError;
                lock.unlock();
                if (handler) handler();
                reportError(QStringLiteral("Порт занят"));
                lock.lock();
            }
        } else if (m_stop) {
            break;
        }
        m_sending = false;
        if (!busyLocked()) m_idle.notify_all();
    }
}

Keyer::Outcome Keyer::play(const Message& m) {
    KeyPort& port = *m_port;
    if (!port.isOpen() && !port.open(m.commPort)) return Outcome::PortError;
    if (!port.setRts(true)) return Outcome::PortError;
    // The last digit is the trailing "0" of the last character; the PTT tail stands in for it.
    for (qsizetype i = 0; i + 1 < m.cwcode.size(); ++i) {
        const QChar d = m.cwcode.at(i);
        if (d != QLatin1Char('0')) {
            const qint64 units = qMax(d.digitValue(), 0);
            if (!port.setDtr(true)) return Outcome::PortError;
            if (!port.wait(units * m.unit, m_abort)) return Outcome::Aborted;
            if (!port.setDtr(false)) return Outcome::PortError;
            if (!port.wait(m.unit, m_abort)) return Outcome::Aborted;
        } else if (!port.wait(2 * m.unit, m_abort)) {
            return Outcome::Aborted;
        }
    }
    if (!port.wait(4 * m.restoredUnit, m_abort)) return Outcome::Aborted;
    if (!port.setRts(false)) return Outcome::PortError;
    if (port.isOpen()) port.close();
    return Outcome::Sent;
}

void Keyer::releaseLines() {
    KeyPort& port = *m_port;
    if (!port.isOpen()) return;
    // Best effort: a line that cannot be dropped must not keep the port from closing.
    port.setDtr(false);
    port.setRts(false);
    port.close();
}

} // namespace hfc
