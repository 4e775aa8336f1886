#include "keyer/winkeyer.h"

#include "keyer/morsetext.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace hfc {

namespace {

constexpr char kAdmin = 0x00, kHostOpen = 0x02, kHostClose = 0x03;
constexpr char kBufferedSpeed = 0x1C, kClearBuffer = 0x0A;
constexpr unsigned char kStatusMask = 0xE0, kStatusTag = 0xC0, kStatusBusy = 0x04;

// The Winkeyer 2 talks at 1200 baud, 8 data bits, no parity, 2 stop bits.
bool setLine(int fd) {
    termios t{};
    if (::tcgetattr(fd, &t) != 0) return false;
    ::cfmakeraw(&t);
    ::cfsetispeed(&t, B1200);
    ::cfsetospeed(&t, B1200);
    t.c_cflag |= CSTOPB | CLOCAL | CREAD;
    t.c_cflag &= ~tcflag_t(CRTSCTS);
    return ::tcsetattr(fd, TCSANOW, &t) == 0;
}

} // namespace

WinKeyer::WinKeyer(QString device) : m_device(std::move(device)) {}

WinKeyer::~WinKeyer() {
    if (m_fd.valid()) write(QByteArray(1, kAdmin) + kHostClose);
}

bool WinKeyer::ensureOpen() {
    if (m_fd.valid()) return true;
    if (m_device.isEmpty()) {
        reportError(QStringLiteral("Не задано устройство Winkeyer"));
        return false;
    }
    Fd fd(::open(m_device.toLocal8Bit().constData(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    // Another program holding the keyer (its lock or exclusive mode) is a busy keyer, not ours.
    if (!fd.valid() || ::flock(fd.get(), LOCK_EX | LOCK_NB) != 0 ||
        ::ioctl(fd.get(), TIOCEXCL) != 0 || !setLine(fd.get())) {
        reportError(QStringLiteral("Winkeyer: не открывается %1").arg(m_device));
        return false;
    }
    ::tcflush(fd.get(), TCIOFLUSH);
    m_fd = std::move(fd);
    if (!write(QByteArray(1, kAdmin) + kHostOpen)) return false;
    // Host open is answered by the revision byte; until then the keyer takes no commands.
    const auto end = Clock::now() + std::chrono::milliseconds(kOpenTimeoutMs);
    while (m_revision == 0) {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
        if (left <= 0 || !waitReadable(m_fd.get(), int(left))) break;
        unsigned char b = 0;
        if (::read(m_fd.get(), &b, 1) == 1) m_revision = b;
    }
    if (m_revision == 0) {
        m_fd.reset();
        reportError(QStringLiteral("Winkeyer не отвечает на %1").arg(m_device));
        return false;
    }
    return true;
}

bool WinKeyer::write(const QByteArray& bytes) {
    if (writeAll(m_fd.get(), bytes)) return true;
    m_fd.reset(); // a keyer pulled out: the next message opens it again
    m_busy = false;
    reportError(QStringLiteral("Winkeyer: ошибка записи в %1").arg(m_device));
    return false;
}

void WinKeyer::send(const QString& cwcode, qint64 unit, qint64 restoredUnit) {
    Q_UNUSED(restoredUnit); // the keyer runs PTT with its own tail
    if (!ensureOpen()) return;
    const QString text = textForCwCode(cwcode, kWinkeyerAlphabet);
    if (text.trimmed().isEmpty()) return;
    const int wpm = deviceWpm(unit, 5, 99);
    // The buffered speed holds for this message only: the next one brings its own.
    if (!write(QByteArray(1, kBufferedSpeed) + char(wpm) + text.toLatin1())) return;
    readInput();
    m_busy = true;
    m_sawBusy = false;
    const double seconds = 1.2 / wpm * double(unitsOfCwCode(cwcode));
    m_deadline = Clock::now() + std::chrono::milliseconds(qint64(seconds * 1500) + 2000);
}

void WinKeyer::abort() {
    if (!m_fd.valid()) return;
    // Text still waiting in the line's buffer would otherwise reach the keyer after the clear.
    ::tcflush(m_fd.get(), TCOFLUSH);
    write(QByteArray(1, kClearBuffer));
    m_busy = false;
}

void WinKeyer::readInput() const {
    if (!m_fd.valid()) return;
    unsigned char buf[64];
    for (;;) {
        const ssize_t n = ::read(m_fd.get(), buf, sizeof buf);
        if (n <= 0) return;
        for (ssize_t i = 0; i < n; ++i) {
            const unsigned char b = buf[i];
            if ((b & kStatusMask) == kStatusTag) {
                if (b & kStatusBusy) {
                    m_sawBusy = true;
                } else if (m_sawBusy) {
                    m_busy = false;
                }
            }
            // Speed-pot bytes (10xxxxxx) and echoed characters carry nothing the window needs.
        }
    }
}

bool WinKeyer::busy() const {
    readInput();
    if (m_busy && Clock::now() > m_deadline) m_busy = false;
    return m_busy;
}

void WinKeyer::waitIdle() {
    while (busy()) {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(m_deadline - Clock::now());
        waitReadable(m_fd.get(), int(std::clamp<qint64>(left.count(), 1, 1000)));
    }
}

} // namespace hfc
