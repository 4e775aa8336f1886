// The keying devices against the real programs of a station: cwdaemon (null device, no sound),
// Hamlib's rigctld with its dummy radio, and the Winkeyer host protocol through a socat pty pair
// (a check of the bytes on the line, not a claim about a device).
#include "../support/freeport.h"
#include "formfixture.h"
#include "keyer/cwdaemonkeyer.h"
#include "keyer/deviceio.h"
#include "keyer/keyport.h"
#include "keyer/morse.h"
#include "keyer/morsetext.h"
#include "keyer/rigctldkeyer.h"
#include "keyer/winkeyer.h"
#include "rigctld.h"
#include "station/settings.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <algorithm>
#include <chrono>
#include <fcntl.h>
#include <thread>
#include <unistd.h>

using namespace hfc;
using SteadyClock = std::chrono::steady_clock;

namespace {

using hfc::test::freePort;

constexpr qint64 kUnit25Wpm = 160000; // 48 ms: 1.2 s / 25

// A program of the station's, stopped when the test ends.
struct Daemon {
    QProcess process;
    ~Daemon() {
        process.kill();
        process.waitForFinished(3000);
    }
};

// Whether a local UDP port is bound. A request as a probe would not do: even a reset changes how
// the daemon times its next message.
bool udpBound(quint16 port) {
    const QString needle = QString(":%1 ").arg(port, 4, 16, QChar('0')).toUpper();
    for (const char* table : {"/proc/net/udp", "/proc/net/udp6"}) {
        QFile f(table);
        if (f.open(QIODevice::ReadOnly) && QString::fromLatin1(f.readAll()).contains(needle))
            return true;
    }
    return false;
}

// Starts cwdaemon on port, or on another free one when another test's daemon holds it (ours
// then exits while the port looks bound); port says which.
bool startCwdaemon(Daemon& d, quint16& port) {
    for (int attempt = 0; attempt < 5; ++attempt) {
        if (attempt) port = freePort(SOCK_DGRAM);
        d.process.start("cwdaemon",
                        {"-n", "-d", "null", "-x", "n", "-y", "n", "-p", QString::number(port)});
        if (!d.process.waitForStarted(3000)) return false;
        bool bound = false;
        for (int i = 0; i < 100 && !bound && d.process.state() == QProcess::Running; ++i) {
            bound = udpBound(port);
            if (!bound) QThread::msleep(30);
        }
        if (bound && !d.process.waitForFinished(200)) return true;
        d.process.kill();
        d.process.waitForFinished(3000);
    }
    return false;
}

// Reads n bytes from fd within timeoutMs (fewer when they do not come).
QByteArray readBytes(int fd, int n, int timeoutMs) {
    QByteArray out;
    const auto end = SteadyClock::now() + std::chrono::milliseconds(timeoutMs);
    while (out.size() < n && SteadyClock::now() < end) {
        if (!waitReadable(fd, 20)) continue;
        char buf[64];
        const ssize_t got = ::read(fd, buf, std::min<size_t>(sizeof buf, size_t(n - out.size())));
        if (got > 0) out.append(buf, got);
    }
    return out;
}

QString cw(const QString& text) {
    QString cwchar;
    return buildCwCode(text, cwchar);
}

TEST(DeviceText, TheElementsComeBackAsTheDevicesCharacters) {
    EXPECT_EQ(textForCwCode(cw("cq test ua3abc"), kCwdaemonAlphabet), "CQ TEST UA3ABC");
    // Cyrillic letters key as their Latin equivalents; cut zeros are letters already.
    EXPECT_EQ(textForCwCode(cw("ТЕСТ 5NNtt1"), kWinkeyerAlphabet), "TEST 5NNTT1");
    // Russian punctuation keys its own elements: "," is the international full stop, "!" the
    // comma; the Russian "." (six dots) and Ч have nothing a device could send.
    EXPECT_EQ(textForCwCode(cw("A,B!C.D"), kCwdaemonAlphabet), "A.B,CD");
    EXPECT_EQ(textForCwCode(cw("ЧA"), kCwdaemonAlphabet), "A");
    // "-" is a speed command to cwdaemon; the Winkeyer keys it.
    EXPECT_EQ(textForCwCode(cw("A-B"), kCwdaemonAlphabet), "AB");
    EXPECT_EQ(textForCwCode(cw("A-B"), kWinkeyerAlphabet), "A-B");
    // PARIS and its word gap: 50 units, less the last "0", which the PTT tail stands in for.
    EXPECT_EQ(unitsOfCwCode(cw("PARIS ")), 48);
}

TEST(RigctldKeyerTest, SpeedAndTextGoToTheRadioAndEscStopsIt) {
    hfc::test::Rigctld daemon;
    ASSERT_TRUE(daemon.start()) << "rigctld did not start";
    QStringList errors;
    RigctldKeyer keyer("127.0.0.1", daemon.port());
    keyer.setErrorHandler([&](const QString& m) { errors << m; });
    keyer.send(cw("TEST"), kUnit25Wpm, kUnit25Wpm);
    EXPECT_TRUE(keyer.busy()) << "the radio is given the message's time";
    keyer.abort();
    EXPECT_FALSE(keyer.busy());
    keyer.waitIdle();
    const QList<int> replies = keyer.replies();
    ASSERT_EQ(replies.size(), 3) << "L KEYSPD, b, \\stop_morse";
    EXPECT_EQ(replies[0], 0);
    EXPECT_EQ(replies[1], 0);
    EXPECT_EQ(daemon.rigctl("l KEYSPD"), "25") << "as another client reads it";
    // The dummy radio cannot stop its keyer; that is no message for the operator.
    EXPECT_TRUE(errors.isEmpty()) << errors.join('\n').toStdString();
}

TEST(DaemonAbsent, NoDaemonAndNoAddressAreReportedByName) {
    QStringList errors;
    const auto send = [&](KeyerBackend&& keyer) {
        keyer.setErrorHandler([&](const QString& m) { errors << m; });
        keyer.send(cw("TEST"), kUnit25Wpm, kUnit25Wpm);
        keyer.waitIdle();
        EXPECT_FALSE(keyer.busy());
    };
    const quint16 udp = freePort(SOCK_DGRAM);
    send(CwDaemonKeyer("127.0.0.1", udp));
    send(RigctldKeyer("", 0));
    EXPECT_EQ(errors, (QStringList{QString("cwdaemon 127.0.0.1:%1 не отвечает").arg(udp),
                                   "Не задан адрес rigctld ([rig] rigctld)"}));
}

// Two linked ptys: the keyer opens one, the test plays the Winkeyer on the other.
struct WinkeyerTest : ::testing::Test {
    QTemporaryDir dir;
    Daemon socat;
    QString keyerSide, deviceSide;
    Fd device;
    QStringList errors;

    void SetUp() override {
        keyerSide = dir.filePath("wk");
        deviceSide = dir.filePath("dev");
        socat.process.start(
            "socat", {"pty,raw,echo=0,link=" + keyerSide, "pty,raw,echo=0,link=" + deviceSide});
        ASSERT_TRUE(socat.process.waitForStarted(3000));
        for (int i = 0; i < 100 && !(QFile::exists(keyerSide) && QFile::exists(deviceSide)); ++i)
            QThread::msleep(20);
        device = Fd(::open(deviceSide.toLocal8Bit().constData(), O_RDWR | O_NOCTTY));
        ASSERT_TRUE(device.valid());
    }
    void put(const QByteArray& bytes) { ASSERT_TRUE(writeAll(device.get(), bytes)); }
};

TEST_F(WinkeyerTest, HostOpenSpeedTextStatusAndClose) {
    {
        WinKeyer keyer(keyerSide);
        keyer.setErrorHandler([this](const QString& m) { errors << m; });
        QByteArray open;
        // The keyer waits for the revision byte before it sends anything else.
        std::thread wk([&] {
            open = readBytes(device.get(), 2, 3000);
            put(QByteArray(1, char(23))); // WK 2.3
        });
        keyer.send(cw("ТЕСТ ua3abc"), kUnit25Wpm, kUnit25Wpm);
        wk.join();
        EXPECT_EQ(open, QByteArray("\x00\x02", 2));
        EXPECT_EQ(keyer.revision(), 23);
        EXPECT_EQ(readBytes(device.get(), 13, 2000), QByteArray("\x1c\x19TEST UA3ABC"));
        EXPECT_TRUE(keyer.busy());

        // Status bytes: BUSY while sending, then idle.
        put("\xc4");
        QThread::msleep(50);
        EXPECT_TRUE(keyer.busy());
        put("\xc0");
        QThread::msleep(50);
        EXPECT_FALSE(keyer.busy());
    }
    EXPECT_EQ(readBytes(device.get(), 2, 2000), QByteArray("\x00\x03", 2)) << "host close";
    EXPECT_TRUE(errors.isEmpty());
}

// The window with a network keyer chosen never speaks of a serial port.
struct KeyerChoiceTest : hfc::test::FormFixture {
    hfc::test::QtApp qt;
    RecordingKeyPort port;
    StationSettings settings;

    void SetUp() override {
        FormFixture::SetUp();
        Env env = form->env();
        env.port = &port;
        env.settings = &settings;
        port.setBusy(true); // the serial port would say "Порт занят"
        form = std::make_unique<ContestForm>(env);
        form->Form_Load();
    }
    void TearDown() override { form.reset(); }
    QStringList shown() {
        if (KeyerBackend* k = form->keyer()) k->waitIdle();
        QCoreApplication::sendPostedEvents();
        return ui.takeShown();
    }
};

TEST_F(KeyerChoiceTest, CwdaemonKeysAndTheSerialPortStaysOut) {
    Daemon daemon;
    quint16 udp = freePort(SOCK_DGRAM);
    ASSERT_TRUE(startCwdaemon(daemon, udp));
    settings.keyerBackend = "cwdaemon";
    settings.cwdaemon = QString("127.0.0.1:%1").arg(udp);
    // Under load the daemon now and then takes the abort before it has started the message and
    // then plays it and echoes; a working abort answers "break" in one of three tries, a broken
    // one never does.
    QByteArray reply;
    for (int attempt = 0; attempt < 3 && reply != "break"; ++attempt) {
        form->pressKey(113);
        ASSERT_NE(form->keyer(), nullptr);
        EXPECT_TRUE(form->keyer()->busy());
        form->pressKey(27); // Esc
        EXPECT_FALSE(form->keyer()->busy());
        auto* keyer = dynamic_cast<CwDaemonKeyer*>(form->keyer());
        ASSERT_NE(keyer, nullptr);
        // The answer may have been read by the busy() check above already.
        if (keyer->lastReply() != "break") keyer->waitForReply(3000);
        reply = keyer->lastReply();
    }
    EXPECT_EQ(reply, "break") << "the daemon's answer to an aborted message";
    EXPECT_TRUE(shown().isEmpty());
    EXPECT_TRUE(port.takeEvents().empty());
    EXPECT_EQ(text("lblports"), "Ключ: " + settings.cwdaemon);
}

} // namespace
