// Keystroke cost in the callsign box on a 10k-QSO log with no radio, with the real rigctld
// (Hamlib's dummy radio) connected and polled while its frequency keeps moving, and with that
// rigctld frozen (SIGSTOP). Each key is timed from its arrival: the events waiting before it
// (the radio's readings) are handled first, as the window's event loop would, then the key.
// Keys come every 10 ms. Prints figures only; needs rigctld and rigctl (libhamlib-utils).
#include "benchutil.h"
#include "data/databases.h"
#include "forms/clock.h"
#include "forms/contest/contestform.h"
#include "script/scriptedui.h"
#include "station/rig.h"
#include "station/settings.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QThread>
#include <csignal>
#include <cstdio>

using namespace hfc;
using namespace hfc::bench;

namespace {

const QString Bands[6] = {"1,8", "3,5", "7", "14", "21", "28"};

void fillLog(Db& db, int qsos, QRandomGenerator& rng) {
    db.begin();
    for (int i = 0; i < qsos; ++i) {
        const QString call = randomCall(rng);
        db.run("INSERT INTO tbllog (ccall, ddate, ttime, bband, rsts, rstr, rsts1, rsts2, rstr1, "
               "rstr2, mult, ps, point, ps1, ps2) VALUES (?1, '28.11.26', '12:00', ?2, '599', "
               "'599', '599', '16', '599', '14', ?3, '14', '3', 'CW', 'cqww')",
               {call, Bands[rng.bounded(6)], call.left(2)});
    }
    db.commit();
}

bool waitFor(const std::function<bool()>& pred, int ms) {
    QElapsedTimer t;
    t.start();
    while (!pred() && t.elapsed() < ms) {
        QCoreApplication::processEvents();
        QThread::msleep(10);
    }
    return pred();
}

void typeCalls(ContestForm& form, const char* what) {
    QRandomGenerator rng(7);
    std::vector<double> keys;
    for (int round = 0; round < 2; ++round) { // the first round warms the caches
        keys.clear();
        for (int i = 0; i < 150; ++i) {
            form.setFocus("txtcall");
            form.txtcall->setText("");
            for (const QChar ch : randomCall(rng)) {
                QThread::msleep(10);
                const auto t0 = Steady::now();
                QCoreApplication::processEvents();
                form.typeChar(ch);
                keys.push_back(ms(Steady::now() - t0));
            }
        }
    }
    const size_t n = keys.size();
    const double median = quantile(keys, 0.5), p99 = quantile(keys, 0.99);
    std::printf("%-34s median %7.3f ms  p99 %7.3f ms  max %7.3f ms  (%zu keys)  %s\n", what, median,
                p99, keys.back(), n, qPrintable(form.lblrig->text()));
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QTemporaryDir dir;
    Databases dbs;
    openOrExit(dbs, dir.path());
    QRandomGenerator rng(10000);
    fillLog(dbs.contest, 10000, rng);

    QTcpServer probe;
    probe.listen(QHostAddress::LocalHost, 0);
    const quint16 port = probe.serverPort();
    probe.close();
    const QString address = QStringLiteral("127.0.0.1:%1").arg(port);
    QProcess daemon;
    daemon.start("rigctld", {"-m", "1", "-T", "127.0.0.1", "-t", QString::number(port)});
    if (!daemon.waitForStarted(5000)) {
        std::fprintf(stderr, "rigctld does not start (Debian libhamlib-utils)\n");
        return 1;
    }
    waitFor(
        [&] {
            QTcpSocket s;
            s.connectToHost("127.0.0.1", port);
            return s.waitForConnected(100);
        },
        5000);

    ScriptedUi ui;
    FixedClock clock;
    clock.set(QDateTime(QDate(2026, 11, 28), QTime(12, 5)),
              QDateTime(QDate(2026, 11, 28), QTime(12, 5)));
    StationSettings station;
    Env env;
    env.db = &dbs;
    env.ui = &ui;
    env.clock = &clock;
    env.settings = &station;
    ContestForm form(env);
    form.Form_Load();
    form.contestcode = "cqww";
    form.cmbband_Click(3);

    typeCalls(form, "10k QSOs, no radio");

    station.rigctld = address;
    form.applyStationSettings();
    if (!waitFor([&] { return form.rig()->state() == Rig::State::Online; }, 10000)) {
        std::fprintf(stderr, "rigctld does not answer\n");
        return 1;
    }
    // Someone turns the dial all the time, so the window gets readings to handle.
    QProcess dial;
    dial.start("sh", {"-c", QStringLiteral("while :; do rigctl -m 2 -r %1 F 14025000; "
                                           "rigctl -m 2 -r %1 F 14026500; done")
                                .arg(address)});
    typeCalls(form, "10k QSOs, rigctld polled, dial");
    dial.kill();
    dial.waitForFinished();

    ::kill(pid_t(daemon.processId()), SIGSTOP);
    waitFor([&] { return form.rig()->state() == Rig::State::Lost; }, 5000);
    typeCalls(form, "10k QSOs, rigctld frozen (SIGSTOP)");
    ::kill(pid_t(daemon.processId()), SIGCONT);
    daemon.kill();
    daemon.waitForFinished();
    return 0;
}
