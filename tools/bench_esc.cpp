// How fast Esc stops a message on each keyer: the DTR keyer (time until RTS drops, on a port
// that switches no lines), cwdaemon (the real daemon, null device and no sound: time until its
// "break" answer), a Winkeyer line (socat pty pair: time until the clear-buffer byte is on the
// far side) and rigctld with the dummy radio (time until "\stop_morse" is answered). Each run
// sends a long message at 25 WPM, lets it key for 300 ms, then presses Esc. Prints figures only.
#include "../tests/support/freeport.h"
#include "benchutil.h"
#include "keyer/cwdaemonkeyer.h"
#include "keyer/deviceio.h"
#include "keyer/keyer.h"
#include "keyer/morse.h"
#include "keyer/rigctldkeyer.h"
#include "keyer/unitclock.h"
#include "keyer/winkeyer.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <cstdio>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

using namespace hfc;
using bench::ms;
using bench::Steady;

namespace {

using hfc::test::freePort;

constexpr int kRuns = 20;
constexpr qint64 kUnit25Wpm = 160000;
const QString kMessage = QStringLiteral("CQ CQ TEST UA3ABC UA3ABC TEST");

QString cw(const QString& text) {
    QString cwchar;
    return buildCwCode(text, cwchar);
}

void report(const char* name, std::vector<double> v) {
    if (v.empty()) {
        std::printf("%-10s not measured\n", name);
        return;
    }
    const double median = bench::quantile(v, 0.5), worst = v.back();
    std::printf("%-10s runs %2zu   median %6.2f ms   max %6.2f ms\n", name, v.size(), median,
                worst);
}

// The DTR keyer on a port that only notes when RTS drops.
class RtsPort : public KeyPort {
  public:
    std::atomic<bool> rtsOff{false};
    Steady::time_point offAt;
    bool open(int) override {
        m_open = true;
        m_clock.restart();
        return true;
    }
    void close() override { m_open = false; }
    bool isOpen() const override { return m_open; }
    bool setRts(bool on) override {
        if (!on) {
            offAt = Steady::now();
            rtsOff = true;
        }
        return true;
    }
    bool setDtr(bool) override { return true; }
    bool wait(qint64 n, const std::atomic<bool>& abort) override { return m_clock.wait(n, abort); }

  private:
    bool m_open = false;
    UnitClock m_clock;
};

std::vector<double> serialRuns() {
    std::vector<double> v;
    auto port = std::make_shared<RtsPort>();
    Keyer keyer(port);
    for (int i = 0; i < kRuns; ++i) {
        port->rtsOff = false;
        keyer.send(cw(kMessage), kUnit25Wpm, kUnit25Wpm);
        QThread::msleep(300);
        const auto t0 = Steady::now();
        keyer.abort();
        keyer.waitIdle();
        if (port->rtsOff) v.push_back(ms(port->offAt - t0));
    }
    return v;
}

std::vector<double> cwdaemonRuns() {
    std::vector<double> v;
    const quint16 port = freePort(SOCK_DGRAM);
    QProcess daemon;
    daemon.start("cwdaemon",
                 {"-n", "-d", "null", "-x", "n", "-y", "n", "-p", QString::number(port)});
    if (!daemon.waitForStarted(3000)) return v;
    QThread::msleep(500);
    CwDaemonKeyer keyer(QStringLiteral("127.0.0.1"), port);
    for (int i = 0; i < kRuns; ++i) {
        keyer.send(cw(kMessage), kUnit25Wpm, kUnit25Wpm);
        QThread::msleep(300);
        const auto t0 = Steady::now();
        keyer.abort();
        while (keyer.waitForReply(1000) && keyer.lastReply() != "break") {
        }
        if (keyer.lastReply() == "break") v.push_back(ms(Steady::now() - t0));
        QThread::msleep(100);
    }
    daemon.kill();
    daemon.waitForFinished(3000);
    return v;
}

std::vector<double> winkeyerRuns() {
    std::vector<double> v;
    QTemporaryDir dir;
    const QString keyerSide = dir.filePath("wk"), deviceSide = dir.filePath("dev");
    QProcess socat;
    socat.start("socat", {"pty,raw,echo=0,link=" + keyerSide, "pty,raw,echo=0,link=" + deviceSide});
    if (!socat.waitForStarted(3000)) return v;
    for (int i = 0; i < 100 && !QFile::exists(deviceSide); ++i) QThread::msleep(20);
    Fd device(::open(deviceSide.toLocal8Bit().constData(), O_RDWR | O_NOCTTY));
    if (device.valid()) {
        // The far side plays the keyer: it answers host open and reads what comes.
        std::thread wk([&] {
            char b[2];
            if (::read(device.get(), b, 2) == 2) writeAll(device.get(), QByteArray(1, char(23)));
        });
        WinKeyer keyer(keyerSide);
        keyer.send(cw("E"), kUnit25Wpm, kUnit25Wpm);
        wk.join();
        for (int i = 0; i < kRuns && keyer.revision() != 0; ++i) {
            keyer.send(cw(kMessage), kUnit25Wpm, kUnit25Wpm);
            QThread::msleep(300);
            char buf[256];
            while (waitReadable(device.get(), 0) && ::read(device.get(), buf, sizeof buf) > 0) {
            }
            const auto t0 = Steady::now();
            keyer.abort();
            bool cleared = false;
            while (!cleared && waitReadable(device.get(), 1000)) {
                const ssize_t n = ::read(device.get(), buf, sizeof buf);
                for (ssize_t k = 0; k < n; ++k) cleared = cleared || buf[k] == 0x0A;
            }
            if (cleared) v.push_back(ms(Steady::now() - t0));
        }
    }
    socat.kill();
    socat.waitForFinished(3000);
    return v;
}

std::vector<double> rigctldRuns() {
    std::vector<double> v;
    const quint16 port = freePort(SOCK_STREAM);
    QProcess daemon;
    daemon.start("rigctld", {"-m", "1", "-t", QString::number(port)});
    if (!daemon.waitForStarted(3000)) return v;
    QThread::msleep(500);
    RigctldKeyer keyer(QStringLiteral("127.0.0.1"), port);
    for (int i = 0; i < kRuns; ++i) {
        keyer.send(cw(kMessage), kUnit25Wpm, kUnit25Wpm);
        QThread::msleep(300);
        const qsizetype before = keyer.replies().size();
        const auto t0 = Steady::now();
        keyer.abort();
        keyer.waitIdle(); // returns once the stop is answered
        if (keyer.replies().size() > before) v.push_back(ms(Steady::now() - t0));
    }
    daemon.kill();
    daemon.waitForFinished(3000);
    return v;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    std::printf("Esc to stop, %d runs each, message at 25 WPM keyed for 300 ms first\n", kRuns);
    report("serial", serialRuns());
    report("cwdaemon", cwdaemonRuns());
    report("winkeyer", winkeyerRuns());
    report("rigctld", rigctldRuns());
    return 0;
}
