// The shared log through a real broker (mosquitto, started here on a free port):
//  1. four computers log 2,000 QSOs each, with edits and deletes, while the broker is stopped
//     and started twice; printed: the time from the broker's last return to identical logs;
//  2. the cost of a keystroke in the callsign box, as felt (the key waits behind whatever the
//     event loop is doing), alone and while the computer receives 20 events a second from
//     another computer running on a thread of its own.
// Prints figures only. QSOS=N changes the 2,000.
#include "../tests/support/freeport.h"
#include "benchutil.h"
#include "data/databases.h"
#include "data/db.h"
#include "data/schema.h"
#include "forms/clock.h"
#include "forms/contest/contestform.h"
#include "log/logstore.h"
#include "script/scriptedui.h"
#include "station/multiop.h"
#include "station/settings.h"

#include <QCoreApplication>
#include <QFile>
#include <QMetaObject>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>
#include <cstdio>
#include <memory>
#include <netinet/in.h>
#include <pwd.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace hfc;
using namespace hfc::bench;

namespace {

using hfc::test::freePort;

struct Broker {
    QTemporaryDir dir;
    quint16 port = freePort();
    QProcess proc;
    Broker() {
        QFile conf(dir.filePath("mosquitto.conf"));
        conf.open(QIODevice::WriteOnly);
        conf.write(
            QStringLiteral("listener %1 127.0.0.1\nallow_anonymous true\npersistence "
                           "true\npersistence_location %2/\nmax_queued_messages 0\nuser %3\n")
                .arg(port)
                .arg(dir.path(), QString::fromLocal8Bit(getpwuid(geteuid())->pw_name))
                .toUtf8());
    }
    void start() {
        proc.start(QFile::exists("/usr/sbin/mosquitto") ? "/usr/sbin/mosquitto" : "mosquitto",
                   {"-c", dir.filePath("mosquitto.conf")});
        proc.waitForStarted();
        QThread::msleep(200);
    }
    void stop() {
        proc.terminate();
        proc.waitForFinished(5000);
    }
    ~Broker() { stop(); }
};

StationSettings settingsFor(const Broker& b, const QString& node) {
    StationSettings s;
    s.broker = QStringLiteral("127.0.0.1:%1").arg(b.port);
    s.logid = "bench";
    s.node = node;
    return s;
}

struct Computer {
    QTemporaryDir dir;
    Db db;
    std::unique_ptr<LogStore> log;
    std::unique_ptr<MultiOp> link;
    QList<qint64> rows;
    Computer(const Broker& b, const QString& node) {
        db.open(dir.path() + "/dbcontest.sqlite", true);
        db.exec("PRAGMA journal_mode=WAL");
        db.exec("PRAGMA synchronous=FULL");
        for (const TableDef& t : databaseFiles()[0].tables)
            if (t.name == "tbllog") db.exec(createTableSql(t));
        log = std::make_unique<LogStore>(db);
        link = std::make_unique<MultiOp>(*log, settingsFor(b, node));
        link->start();
    }
    QString digest() {
        return db.scalar("SELECT group_concat(r, '|') FROM (SELECT ccall || ',' || bband || ',' "
                         "|| ifnull(rstr2, '') AS r FROM tbllog ORDER BY r)");
    }
};

void pump(int ms) {
    const auto end = Steady::now() + std::chrono::milliseconds(ms);
    while (Steady::now() < end) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        QThread::msleep(1);
    }
}

const QString Bands[6] = {"1,8", "3,5", "7", "14", "21", "28"};

void convergence(int qsos) {
    Broker broker;
    broker.start();
    std::vector<std::unique_ptr<Computer>> nodes;
    for (const char* n : {"run1", "run2", "mult1", "mult2"})
        nodes.push_back(std::make_unique<Computer>(broker, n));
    pump(300);
    QRandomGenerator rng(42);
    const auto started = Steady::now();
    for (int i = 0; i < qsos; ++i) {
        for (auto& c : nodes) {
            c->db.run("INSERT INTO tbllog (ccall, bband, ps2, rstr2) VALUES (?1, ?2, 'cqww', '14')",
                      {randomCall(rng), Bands[rng.bounded(6)]});
            c->rows << c->db.scalar("SELECT max(rowid) FROM tbllog").toLongLong();
            if (i % 10 == 9)
                c->db.run("UPDATE tbllog SET rstr2 = '15' WHERE rowid = ?1",
                          {QString::number(c->rows[rng.bounded(int(c->rows.size()))])});
            if (i % 20 == 19)
                c->db.run("DELETE FROM tbllog WHERE rowid = ?1",
                          {QString::number(c->rows.takeAt(rng.bounded(int(c->rows.size()))))});
        }
        if (i % 25 == 0) QCoreApplication::processEvents();
        if (i == qsos / 3 || i == 2 * qsos / 3) {
            broker.stop();
            std::printf("  broker stopped after %d QSOs a computer\n", i + 1);
        }
        if (i == qsos / 3 + qsos / 10) broker.start();
    }
    const double logging = ms(Steady::now() - started);
    broker.start();
    const auto back = Steady::now();
    double converged = -1;
    while (ms(Steady::now() - back) < 60000) {
        pump(50);
        bool same = true, sent = true;
        const QString d0 = nodes[0]->digest();
        for (auto& c : nodes) {
            same = same && c->digest() == d0;
            sent = sent && c->link->pending() == 0;
        }
        if (same && sent) {
            converged = ms(Steady::now() - back);
            break;
        }
    }
    const int rows = nodes[0]->db.scalar("SELECT count(*) FROM tbllog").toInt();
    std::printf("4 computers x %d QSOs (10%% edited, 5%% deleted), broker restarted twice\n", qsos);
    std::printf("  logging took %.0f ms; %d rows in each log at the end\n", logging, rows);
    std::printf("  broker's return to identical logs: %.0f ms%s\n", converged,
                converged < 0 ? " (did not converge within 60 s)" : "");
}

// The keystroke as felt: whatever the event loop had queued runs before the key is handled.
std::vector<double> keystrokes(ContestForm& form, QRandomGenerator& rng, int seconds) {
    std::vector<double> keys;
    const auto end = Steady::now() + std::chrono::seconds(seconds);
    while (Steady::now() < end) {
        form.setFocus("txtcall");
        form.txtcall->setText("");
        for (const QChar ch : randomCall(rng)) {
            QThread::msleep(30); // a fast typist: about 30 keys a second
            const auto t0 = Steady::now();
            QCoreApplication::processEvents();
            form.typeChar(ch);
            keys.push_back(ms(Steady::now() - t0));
        }
    }
    return keys;
}

// Another computer of the station, as another process would be: its own thread with its own
// event loop, so its inserts, collects and acknowledgements (each a wait for the disk) do not
// run on the receiving window's thread and are not counted against its keystrokes.
class RemoteComputer {
  public:
    RemoteComputer(const Broker& b, const QString& node) {
        ctx_.moveToThread(&thread_);
        thread_.start();
        onThread([&] { c_ = std::make_unique<Computer>(b, node); });
    }
    ~RemoteComputer() {
        onThread([&] {
            timer_.reset();
            c_.reset();
        });
        thread_.quit();
        thread_.wait();
    }
    // The log of the given size, logged there before the window starts listening.
    void logInBulk(int qsos) {
        onThread([&] {
            c_->db.begin();
            for (int i = 0; i < qsos; ++i)
                c_->db.run(
                    "INSERT INTO tbllog (ccall, bband, ps2, rstr2) VALUES (?1, ?2, 'cqww', '14')",
                    {randomCall(rng_), Bands[rng_.bounded(6)]});
            c_->db.commit();
            c_->link->flushLocal();
        });
    }
    void logEvery(int msec) {
        onThread([&] {
            timer_ = std::make_unique<QTimer>();
            QObject::connect(timer_.get(), &QTimer::timeout, [this] {
                c_->db.run(
                    "INSERT INTO tbllog (ccall, bband, ps2, rstr2) VALUES (?1, '14', 'cqww', '14')",
                    {randomCall(rng_)});
            });
            timer_->start(msec);
        });
    }
    void stop() {
        onThread([&] { timer_.reset(); });
    }

  private:
    template <class F> void onThread(F f) {
        QMetaObject::invokeMethod(&ctx_, f, Qt::BlockingQueuedConnection);
    }

    QThread thread_;
    QObject ctx_; // lives on thread_: what runs there is queued to it
    std::unique_ptr<Computer> c_;
    std::unique_ptr<QTimer> timer_;
    QRandomGenerator rng_{11};
};

void keystrokeWhileReceiving(int qsos) {
    Broker broker;
    broker.start();
    QTemporaryDir dir;
    Databases dbs;
    QString error;
    if (!dbs.open(dir.path(), error)) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return;
    }
    ScriptedUi ui;
    FixedClock clock;
    clock.set(QDateTime(QDate(2024, 11, 23), QTime(3, 0)),
              QDateTime(QDate(2024, 11, 23), QTime(0, 0)));
    StationSettings settings = settingsFor(broker, "run");
    Env env;
    env.db = &dbs;
    env.ui = &ui;
    env.clock = &clock;
    env.settings = &settings;
    ContestForm form(env);
    form.Form_Load();
    form.contestcode = "cqww";
    form.cmbband_Click(3);
    RemoteComputer sender(broker, "mult");
    QRandomGenerator rng(7);
    sender.logInBulk(qsos);
    pump(3000);
    std::vector<double> quiet = keystrokes(form, rng, 5);
    const int before = dbs.contest.scalar("SELECT count(*) FROM tbllog").toInt();
    sender.logEvery(50); // 20 events a second from the other computer
    std::vector<double> busy = keystrokes(form, rng, 10);
    sender.stop();
    pump(1000);
    const int received = dbs.contest.scalar("SELECT count(*) FROM tbllog").toInt() - before;
    std::printf("keystroke in the callsign box on a log of %d QSOs, as felt (ms)\n", qsos);
    std::printf("  alone:                  median %.3f  p99 %.3f  (%zu keys)\n",
                quantile(quiet, 0.5), quantile(quiet, 0.99), quiet.size());
    std::printf("  receiving 20 events/s:  median %.3f  p99 %.3f  (%zu keys, %d QSOs received)\n",
                quantile(busy, 0.5), quantile(busy, 0.99), busy.size(), received);
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const int qsos =
        qEnvironmentVariableIsSet("QSOS") ? qEnvironmentVariableIntValue("QSOS") : 2000;
    convergence(qsos);
    keystrokeWhileReceiving(4 * qsos);
    return 0;
}
