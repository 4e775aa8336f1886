// Crash safety of the log: hfcontest-script logs QSOs and is killed with SIGKILL at a random
// moment; every QSO whose commit had returned (the driver printed the serial count after it)
// must be in tbllog, the database must pass integrity_check, and the driver must start again on
// the same data folder. Every tenth run starts on a new folder, so kills also land while the
// databases are being created and seeded (--fresh-every N changes that).
//
//   hfcontest_crash_test --driver PATH --work DIR [--runs N] [--qsos N] [--max-delay MS]
//                        [--fresh-every N] [--seed S]
#include "data/db.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <algorithm>
#include <cstdio>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace {

struct Options {
    QString driver, work;
    int runs = 50, qsos = 300, maxDelayMs = 700, freshEvery = 10;
    unsigned seed = unsigned(std::random_device{}());
};

struct Outcome {
    QStringList lines;   // complete lines of standard output
    bool killed = false; // still running at the deadline
    int exitCode = -1;
};

// Runs the driver on the script, kills it after delayMs (if it is still running) and returns
// every complete line it printed before that.
Outcome runDriver(const Options& o, const QString& data, const QString& script, int delayMs) {
    QProcess p;
    p.setStandardErrorFile(o.work + "/driver.err");
    p.start(o.driver, {"--data-dir", data, script});
    Outcome out;
    if (!p.waitForFinished(delayMs) && p.state() != QProcess::NotRunning) {
        p.kill(); // SIGKILL
        p.waitForFinished(-1);
        out.killed = p.exitStatus() == QProcess::CrashExit; // or it ended just before the kill
    }
    if (p.exitStatus() == QProcess::NormalExit) out.exitCode = p.exitCode();
    // What the driver printed before it died is in the pipe still; a cut last line is dropped.
    const QString text = QString::fromUtf8(p.readAllStandardOutput());
    out.lines = text.left(text.lastIndexOf('\n') + 1).split('\n', Qt::SkipEmptyParts);
    return out;
}

// Unique callsigns across the whole test: UA, a digit, three letters.
QString callOf(int n) {
    QString c = QStringLiteral("UA%1").arg(n % 10);
    n /= 10;
    for (int i = 0; i < 3; ++i, n /= 26) c += QChar('A' + n % 26);
    return c;
}

QString loggingScript(int firstCall, int qsos) {
    QString s = QStringLiteral("clock 2024-11-23T03:00:00 2024-11-23T00:00:00\n"
                               "input 16\n"
                               "call mnucqww_Click\n"
                               "call cmbband_Click 3\n"
                               "focus txtcall\n");
    for (int i = 0; i < qsos; ++i)
        s += QStringLiteral("type %1\\r\ntype \\r\nprint TXTRSTS2.text\n")
                 .arg(callOf(firstCall + i));
    return s;
}

bool writeFile(const QString& path, const QString& text) {
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate)) return false;
    f.write(text.toUtf8());
    return true;
}

int fail(const Options& o, int run, const QString& why) {
    std::fprintf(stderr, "run %d (seed %u): %s\n", run, o.seed, qPrintable(why));
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv); // QProcess watches its children through it
    Options o;
    const std::map<std::string, QString*> texts = {{"--driver", &o.driver}, {"--work", &o.work}};
    const std::map<std::string, int*> numbers = {{"--runs", &o.runs},
                                                 {"--qsos", &o.qsos},
                                                 {"--max-delay", &o.maxDelayMs},
                                                 {"--fresh-every", &o.freshEvery}};
    for (int i = 1; i + 1 < argc; i += 2) {
        const QString v = QString::fromLocal8Bit(argv[i + 1]);
        if (texts.count(argv[i])) *texts.at(argv[i]) = v;
        if (numbers.count(argv[i])) *numbers.at(argv[i]) = v.toInt();
        if (argv[i] == std::string("--seed")) o.seed = v.toUInt();
    }
    o.freshEvery = std::max(1, o.freshEvery);
    if (o.driver.isEmpty() || o.work.isEmpty()) {
        std::fprintf(stderr,
                     "usage: %s --driver PATH --work DIR [--runs N] [--qsos N] "
                     "[--max-delay MS] [--fresh-every N] [--seed S]\n",
                     argv[0]);
        return 2;
    }
    std::mt19937 rng(o.seed);
    QDir(o.work).removeRecursively();
    QDir().mkpath(o.work);
    const QString data = o.work + "/data";
    const QString script = o.work + "/log.script";
    const QString check = o.work + "/start.script";
    writeFile(check, "sql contest SELECT COUNT(*) FROM tbllog WHERE ps2 = 'cqww'\n");

    std::vector<QString> acked; // calls whose commit returned, in this data folder
    int nextCall = 0, kills = 0, inSeeding = 0;
    for (int run = 0; run < o.runs; ++run) {
        const bool fresh = run % o.freshEvery == 0;
        if (fresh) {
            QDir(data).removeRecursively();
            acked.clear();
        }
        // the QSOs already in the log when this run starts
        qint64 base = 0;
        if (QFile::exists(data + "/dbcontest.sqlite")) {
            hfc::Db db;
            db.open(data + "/dbcontest.sqlite", false);
            base = db.scalar("SELECT COUNT(*) FROM tbllog WHERE ps2 = 'cqww'").toLongLong();
        }
        writeFile(script, loggingScript(nextCall, o.qsos));
        // On a new folder the kill aims at the start-up, which creates and seeds the databases.
        const int delay =
            std::uniform_int_distribution<int>(0, fresh ? o.maxDelayMs / 3 : o.maxDelayMs)(rng);
        const Outcome out = runDriver(o, data, script, delay);
        if (!out.killed && out.exitCode != 0)
            return fail(o, run, QStringLiteral("driver exited %1").arg(out.exitCode));
        kills += out.killed;
        int k = 0;
        for (const QString& line : out.lines) {
            if (!line.startsWith("TXTRSTS2.text=")) continue;
            ++k;
            const qint64 shown = line.mid(14).toLongLong();
            if (shown != base + k)
                return fail(o, run,
                            QStringLiteral("serial count %1 after %2 commits on %3")
                                .arg(shown)
                                .arg(k)
                                .arg(base));
            acked.push_back(callOf(nextCall + k - 1));
        }
        if (k == 0 && out.killed) ++inSeeding;
        nextCall += o.qsos;

        // After the kill: the file is sound and holds every acknowledged QSO.
        {
            hfc::Db db;
            try {
                db.open(data + "/dbcontest.sqlite", false);
                const QString integrity = db.scalar("PRAGMA integrity_check");
                if (integrity != "ok") return fail(o, run, "integrity_check: " + integrity);
                for (const QString& call : acked)
                    if (!db.exists("SELECT 1 FROM tbllog WHERE ccall = ?1", {call}))
                        return fail(o, run, "acknowledged QSO missing: " + call);
            } catch (const hfc::DbError& e) {
                // killed before the log was created: then nothing can have been acknowledged
                if (!acked.empty() || QFile::exists(data + "/dbcontest.sqlite"))
                    return fail(o, run, QStringLiteral("log unreadable: ") + e.what());
            }
        }
        // ... and the program starts again on it.
        const Outcome again = runDriver(o, data, check, 60000);
        if (again.killed || again.exitCode != 0 || again.lines.size() != 1)
            return fail(o, run,
                        QStringLiteral("no start after the kill (exit %1): see %2")
                            .arg(again.exitCode)
                            .arg(o.work + "/driver.err"));
        const qint64 count = again.lines[0].toLongLong();
        if (count < qint64(acked.size()))
            return fail(o, run,
                        QStringLiteral("restart sees %1 QSOs, %2 acknowledged")
                            .arg(count)
                            .arg(acked.size()));
    }
    std::printf("%d runs, %d killed (%d before the first commit), %zu acknowledged QSOs in the "
                "last folder, seed %u: all kept, integrity ok, restart ok\n",
                o.runs, kills, inSeeding, acked.size(), o.seed);
    return 0;
}
