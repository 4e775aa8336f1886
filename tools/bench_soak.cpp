// A long session through the script driver, in-process: QSOs typed key by key into the main
// window as in a 48-hour contest at full rate (one QSO every 3.5 s, band changes, repeats), and
// at intervals the resident memory (VmRSS), the time per keystroke over the last interval (all
// keys, and the third and later keys of a call, whose partial-call list is short) and the time
// of Enter that commits a QSO (the commit and the recount after it). Prints figures only.
//
//   bench_soak [QSOS] [INTERVAL]      (defaults: 50000, 5000)
//   NOSYNC=1 bench_soak               commits without waiting for the disk (a quicker run)
#include "benchutil.h"
#include "script/scriptrunner.h"

#include <QCoreApplication>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

using namespace hfc;
using namespace hfc::bench;

namespace {

long rssKb() {
    QFile f(QStringLiteral("/proc/self/status"));
    if (!f.open(QIODevice::ReadOnly)) return -1;
    for (const QByteArray& line : f.readAll().split('\n'))
        if (line.startsWith("VmRSS:")) return line.mid(6).trimmed().split(' ').value(0).toLong();
    return -1;
}

// The stations on the air: worked again on other bands, and sometimes again on the same band.
std::vector<QString> stations(QRandomGenerator& rng, int n) {
    std::vector<QString> out;
    for (int i = 0; i < n; ++i) out.push_back(randomCall(rng));
    return out;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const int qsos = argc > 1 ? std::atoi(argv[1]) : 50000;
    const int interval = argc > 2 ? std::max(1, std::atoi(argv[2])) : 5000;
    QTemporaryDir dir;
    QString sink, errors;
    QTextStream out(&sink), err(&errors);
    ScriptRunner runner(out, err);
    if (!runner.start(dir.path())) {
        std::fprintf(stderr, "%s\n", qPrintable(errors));
        return 1;
    }
    const auto line = [&](const QString& l) {
        if (!runner.runLine(l)) {
            std::fprintf(stderr, "line failed: %s\n%s\n", qPrintable(l), qPrintable(errors));
            std::exit(1);
        }
    };
    if (qgetenv("NOSYNC") == "1") line(QStringLiteral("sql contest PRAGMA synchronous=OFF"));
    line(QStringLiteral("clock 2024-11-23T03:00:00 2024-11-23T00:00:00"));
    line(QStringLiteral("input 16"));
    line(QStringLiteral("call mnucqww_Click"));
    line(QStringLiteral("call cmbband_Click 2"));
    line(QStringLiteral("focus txtcall"));

    QRandomGenerator rng(48);
    const std::vector<QString> pool = stations(rng, 30000);
    std::vector<double> keys, later, commits; // later: the third and further keys of a call
    const auto t0 = Steady::now();
    std::printf("%7s %8s %8s %8s %8s %9s %8s %8s\n", "QSOs", "RSS MB", "key med", "key p99",
                "key max", "3rd+ med", "commit", "elapsed");
    std::printf("%7s %8s %8s %8s %8s %9s %8s\n", "", "", "ms", "ms", "ms", "ms", "med ms");
    for (int q = 1; q <= qsos; ++q) {
        if (q % 400 == 0) line(QStringLiteral("call cmbband_Click %1").arg(rng.bounded(6)));
        line(QStringLiteral("advance 3"));
        line(QStringLiteral("call Timer1_Timer"));
        const QString call = pool[rng.bounded(int(pool.size()))];
        for (qsizetype i = 0; i < call.size(); ++i) {
            const auto k0 = Steady::now();
            line(QStringLiteral("type ") + call[i]);
            keys.push_back(ms(Steady::now() - k0));
            if (i >= 2) later.push_back(keys.back());
        }
        line(QStringLiteral("type \\r")); // to the exchange box, zone filled in
        const auto c0 = Steady::now();
        line(QStringLiteral("type \\r")); // commit; the focus returns to the callsign box
        commits.push_back(ms(Steady::now() - c0));
        sink.clear();
        out.seek(0);
        if (q % interval == 0) {
            std::printf("%7d %8.1f %8.3f %8.3f %8.3f %9.3f %8.3f %7.0fs\n", q, rssKb() / 1024.0,
                        quantile(keys, 0.5), quantile(keys, 0.99),
                        keys.empty() ? 0 : *std::max_element(keys.begin(), keys.end()),
                        quantile(later, 0.5), quantile(commits, 0.5),
                        ms(Steady::now() - t0) / 1000);
            std::fflush(stdout);
            keys.clear();
            later.clear();
            commits.clear();
        }
    }
    line(QStringLiteral("sql contest SELECT COUNT(*), SUM(ps1 = 'DUPE') FROM tbllog"));
    line(QStringLiteral("print DBGrid3.rows"));
    out.flush();
    const QStringList printed = sink.split('\n');
    const QStringList counts = printed.value(0).split('\t');
    std::printf("log: %s QSOs in tbllog (%s repeats), %lld rows in the log grid\n",
                qPrintable(counts.value(0)), qPrintable(counts.value(1)),
                qlonglong(printed.size()) - 4);
    return 0;
}
