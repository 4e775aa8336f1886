#include "keyer/keyport.h"

#include <algorithm>
#include <chrono>

namespace hfc {

KeyPort::~KeyPort() = default;

void RecordingKeyPort::record(const char* name, bool value) {
    m_events.push_back({m_now, QString::fromLatin1(name), value});
}

bool RecordingKeyPort::open(int commPort) {
    std::lock_guard lock(m_mutex);
    if (m_busy) return false;
    m_open = true;
    m_commPort = commPort;
    record("PortOpen", true);
    return true;
}

void RecordingKeyPort::close() {
    std::lock_guard lock(m_mutex);
    if (!m_open) return;
    m_open = false;
    record("PortOpen", false);
}

bool RecordingKeyPort::isOpen() const {
    std::lock_guard lock(m_mutex);
    return m_open;
}

bool RecordingKeyPort::setRts(bool on) {
    std::lock_guard lock(m_mutex);
    if (m_linesFail) return false;
    record("RTSEnable", on);
    return true;
}

bool RecordingKeyPort::setDtr(bool on) {
    std::lock_guard lock(m_mutex);
    if (m_linesFail) return false;
    record("DTREnable", on);
    return true;
}

bool RecordingKeyPort::wait(qint64 iterations, const std::atomic<bool>& abort) {
    std::unique_lock lock(m_mutex);
    if (abort) return false;
    const qint64 end = m_now + iterations;
    if (m_holdAt < 0 || end < m_holdAt) {
        m_now = end;
        return true;
    }
    // The hold is one-shot: reaching it consumes it.
    m_now = std::max(m_now, m_holdAt);
    m_holdAt = -1;
    m_held = true;
    m_cv.notify_all();
    // The abort flag belongs to the keyer and cannot wake us, hence the polling.
    while (m_held && !abort) m_cv.wait_for(lock, std::chrono::milliseconds(1));
    if (abort) {
        m_held = false;
        return false;
    }
    m_now = std::max(m_now, end);
    return true;
}

void RecordingKeyPort::setBusy(bool busy) {
    std::lock_guard lock(m_mutex);
    m_busy = busy;
}

void RecordingKeyPort::setLinesFail(bool fail) {
    std::lock_guard lock(m_mutex);
    m_linesFail = fail;
}

std::vector<KeyEvent> RecordingKeyPort::takeEvents() {
    std::lock_guard lock(m_mutex);
    std::vector<KeyEvent> out;
    out.swap(m_events);
    return out;
}

qint64 RecordingKeyPort::now() const {
    std::lock_guard lock(m_mutex);
    return m_now;
}

int RecordingKeyPort::lastCommPort() const {
    std::lock_guard lock(m_mutex);
    return m_commPort;
}

void RecordingKeyPort::holdAt(qint64 iteration) {
    std::lock_guard lock(m_mutex);
    m_holdAt = iteration;
}

bool RecordingKeyPort::isHeld() const {
    std::lock_guard lock(m_mutex);
    return m_held;
}

bool RecordingKeyPort::waitUntilHeld(int timeoutMs) {
    std::unique_lock lock(m_mutex);
    return m_cv.wait_for(lock, std::chrono::milliseconds(timeoutMs), [this] { return m_held; });
}

void RecordingKeyPort::releaseHold() {
    std::lock_guard lock(m_mutex);
    m_holdAt = -1;
    m_held = false;
    m_cv.notify_all();
}

} // namespace hfc
