// The shared log through the real broker: mosquitto started on a free port with its own
// config file, and several hfcontest-script processes, each on its own data folder with its own
// settings. QSOs, edits and deletes cross over; a partition converges (in the station-wide
// sequence's test); a computer killed between its commit and its publish still delivers; a late
// joiner gets the whole log.
#include "../support/freeport.h"
#include "testfiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QThread>
#include <algorithm>
#include <csignal>
#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

namespace {

using hfc::test::freePort;
using hfc::test::holds;

// The station's broker: no daemon, its own config, persistence in its own folder.
struct Broker {
    QTemporaryDir dir;
    quint16 port = freePort();
    QProcess proc;

    Broker() {
        QFile conf(dir.filePath("mosquitto.conf"));
        conf.open(QIODevice::WriteOnly);
        // Started as root, mosquitto would change to its own user, who cannot write here.
        const passwd* me = getpwuid(geteuid());
        conf.write(QStringLiteral("listener %1 127.0.0.1\nallow_anonymous true\n"
                                  "persistence true\npersistence_location %2/\nuser %3\n")
                       .arg(port)
                       .arg(dir.path(), QString::fromLocal8Bit(me ? me->pw_name : "root"))
                       .toUtf8());
    }
    ~Broker() { stop(); }
    bool start() {
        const QString exe =
            QFileInfo::exists("/usr/sbin/mosquitto") ? "/usr/sbin/mosquitto" : "mosquitto";
        proc.start(exe, {"-c", dir.filePath("mosquitto.conf")});
        for (int i = 0; i < 100; ++i) {
            QTcpSocket s;
            s.connectToHost("127.0.0.1", port);
            if (s.waitForConnected(100)) return true;
            QThread::msleep(50);
        }
        return false;
    }
    // SIGTERM: the broker writes its retained messages to disk on the way out.
    void stop() {
        if (proc.state() == QProcess::NotRunning) return;
        proc.terminate();
        proc.waitForFinished(5000);
    }
};

// One computer of the station: its data folder and its settings.
struct Computer {
    QString name, root;
    QProcess proc;

    Computer(const QString& n, const QString& base, quint16 port, const QString& logid = "field")
        : name(n), root(base + "/" + n) {
        QDir().mkpath(root + "/config/hfcontest");
        QFile conf(root + "/config/hfcontest/hfcontest.conf");
        conf.open(QIODevice::WriteOnly);
        conf.write(QStringLiteral("[multiop]\nbroker=127.0.0.1:%1\nlogid=%2\nnode=%3\n")
                       .arg(port)
                       .arg(logid, n)
                       .toUtf8());
    }
    void start(const QString& script) {
        QFile f(root + "/run.script");
        f.open(QIODevice::WriteOnly);
        f.write(script.toUtf8());
        f.close();
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("XDG_CONFIG_HOME", root + "/config");
        proc.setProcessEnvironment(env);
        proc.start(HFC_SCRIPT_DRIVER, {"--data-dir", root + "/data", root + "/run.script"});
        proc.waitForStarted();
    }
    // Reads standard output until text has appeared.
    bool waitFor(const QByteArray& text) {
        while (!seen.contains(text)) {
            if (!proc.waitForReadyRead(20000)) return false;
            seen += proc.readAllStandardOutput();
        }
        return true;
    }
    QByteArray seen;
    QString finish() {
        proc.waitForFinished(60000);
        const QString err = QString::fromUtf8(proc.readAllStandardError());
        EXPECT_EQ(proc.exitCode(), 0) << name.toStdString() << ": " << err.toStdString();
        return QString::fromUtf8(seen + proc.readAllStandardOutput());
    }
    QString run(const QString& script) {
        start(script);
        return finish();
    }
};

// The contest chosen and 7 MHz taken, as an operator starts.
const QString Start = "clock 2024-11-23T03:00:00 2024-11-23T00:00:00\n"
                      "call Timer1_Timer\ninput 16\ncall mnucqww_Click\n"
                      "key 39\nkey 39\ntype \\r\n";
// The log's rows after a "--" line.
const QString Dump = "sql contest SELECT '--'\nsql contest SELECT ccall, bband, rstr2, ps2 FROM "
                     "tbllog ORDER BY ccall\n";

QString qso(const QString& call) {
    return "type " + call + "\\r\ntype \\r\n";
}

// The rows a computer prints after the "--" line.
std::string after(const QString& out, const QString& marker = "--\n") {
    const int at = out.lastIndexOf(marker);
    return at < 0 ? std::string("(no marker) ") + out.toStdString()
                  : out.mid(at + marker.size()).toStdString();
}

// A broker running, and a folder for the computers.
struct MultiOpBroker : ::testing::Test {
    Broker broker;
    QTemporaryDir base;
    void SetUp() override { ASSERT_TRUE(broker.start()); }
};

} // namespace

TEST_F(MultiOpBroker, QsosEditsAndDeletesCrossOverAndALateJoinerGetsTheWholeLog) {
    Computer run("run", base.path(), broker.port), mult("mult", base.path(), broker.port);
    run.start(Start + qso("dl1abc") + qso("f5xyz") + "print TXTRSTS2.text\nwait 5000\n" +
              // mult's QSO has come over: a repeat here, and counted in the totals
              "type ok1rr\nprint txtrepit.text\nprint txtrepit.visible\n"
              "print qsotot.text\ncall nextserial\nprint TXTRSTS2.text\n"
              "call DBGrid3_Edit 0 Принят 16\nwait 2000\nprint DBGrid3.rows\n" +
              Dump);
    ASSERT_TRUE(run.waitFor("TXTRSTS2.text=2"));
    // run's two QSOs come in first; mult deletes the second from its grid
    mult.start(Start + "wait 1500\n" + qso("ok1rr") +
               "call refreshLogGrid\ncall DBGrid3_Delete 1\nwait 6000\n" + Dump);
    const QString runOut = run.finish(), multOut = mult.finish();
    // qsotot: F5XYZ deleted on mult, OK1RR logged there; TXTRSTS2: each transmitter numbers
    // its own QSOs, only DL1ABC is run's now; the grid's last column names the computer that
    // logged the row
    EXPECT_TRUE(holds(runOut, {"txtrepit.text=Повтор\ntxtrepit.visible=true\n", "qsotot.text=2\n",
                               "TXTRSTS2.text=1\n", "\tmult\n"}));
    const std::string want = "DL1ABC\t7\t16\tcqww\nOK1RR\t7\t15\tcqww\n";
    EXPECT_EQ(after(runOut), want);
    EXPECT_EQ(after(multOut), want);

    // A third computer, never seen before, catches up by subscribing.
    Computer late("late", base.path(), broker.port);
    EXPECT_EQ(after(late.run("wait 2000\n" + Dump)), want);
    // A computer of another log hears none of it.
    Computer other("other", base.path(), broker.port, "another");
    EXPECT_EQ(after(other.run("wait 1500\n" + Dump)), "");
}

TEST_F(MultiOpBroker, AComputerKilledBetweenCommitAndPublishDeliversAndRefillsALostBroker) {
    broker.stop(); // the commit cannot be published
    Computer a("a", base.path(), broker.port);
    a.start(Start + qso("dl1abc") + "print TXTRSTS2.text\nwait 30000\n");
    ASSERT_TRUE(a.waitFor("TXTRSTS2.text=1"));
    ::kill(pid_t(a.proc.processId()), SIGKILL);
    a.proc.waitForFinished();

    ASSERT_TRUE(broker.start());
    EXPECT_EQ(
        after(a.run(
            "wait 2000\nsql contest SELECT '--'\nsql contest SELECT count(*) FROM mqoutbox\n")),
        "0\n");
    // A broker that lost it (a new broker computer, or no persistence) is filled again by the
    // computers when they connect.
    broker.stop();
    QFile::remove(broker.dir.filePath("mosquitto.db"));
    ASSERT_TRUE(broker.start());
    a.run("wait 3000\n");
    Computer late("late", base.path(), broker.port);
    EXPECT_EQ(after(late.run("wait 2000\n" + Dump)), "DL1ABC\t7\t14\tcqww\n");
}

// WAE wants one serial sequence for the station: numbers come from blocks each computer
// reserved through the broker, so none is sent twice, also while the broker is away.
TEST_F(MultiOpBroker, AStationWideSequenceNeverSendsANumberTwice) {
    Computer a("a", base.path(), broker.port), b("b", base.path(), broker.port);
    const QString wae = "clock 2024-11-23T03:00:00 2024-11-23T00:00:00\n"
                        "call Timer1_Timer\ncall mnuwae_Click\nkey 39\nkey 39\ntype \\r\n"
                        "wait 1500\n";
    auto qsos = [](const QString& prefix, int n) {
        QString s;
        for (int i = 1; i <= n; ++i)
            s += "type " + prefix + QString::number(i) + "a\\r\ntype 5\\r\n";
        return s;
    };
    const QString end = "wait 6000\nsql contest SELECT '--'\n"
                        "sql contest SELECT rsts2 FROM tbllog ORDER BY rsts2\n";
    const QString partitioned = "wait 2500\n";
    const QString shown = "call Timer1_Timer\nprint lblstation.text\n";
    a.start(wae + qsos("dl", 3) + "print TXTRSTS2.text\n" + partitioned + qsos("f", 4) + shown +
            end);
    b.start(wae + qsos("ok", 3) + "print TXTRSTS2.text\n" + partitioned + qsos("g", 4) + shown +
            end);
    ASSERT_TRUE(a.waitFor("TXTRSTS2.text=") && b.waitFor("TXTRSTS2.text="));
    broker.stop(); // both log on from their reserves
    QThread::msleep(3500);
    ASSERT_TRUE(broker.start());
    const QString aOut = a.finish(), bOut = b.finish();
    const std::string rows = after(aOut);
    EXPECT_EQ(rows, after(bOut));
    QStringList sent = QString::fromStdString(rows).split('\n', Qt::SkipEmptyParts);
    ASSERT_EQ(sent.size(), 14) << aOut.toStdString() << bOut.toStdString();
    sent.removeDuplicates();
    EXPECT_EQ(sent.size(), 14) << rows;
    // Every number sent was one of the computer's reserve.
    EXPECT_FALSE(aOut.contains("не зарезервирован")) << aOut.toStdString();
    EXPECT_FALSE(bOut.contains("не зарезервирован")) << bOut.toStdString();
}
