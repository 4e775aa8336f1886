// Super check partial on Debian's MASTER.SCP (85k calls): the time to read and index the file,
// and per keystroke the two list lookups (calls holding the typed text from the second
// character, calls one character off from the third), alone and as the window runs them
// (lists, marks of worked calls and the one-off calls of a 5000-QSO log). Prints figures only.
#include "benchutil.h"
#include "data/databases.h"
#include "forms/clock.h"
#include "forms/contest/contestform.h"
#include "script/scriptedui.h"
#include "station/scp.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <cstdio>

using namespace hfc;
using namespace hfc::bench;

namespace {

const QString kScp = QStringLiteral("/usr/share/hamradio-files/MASTER.SCP");

void report(const char* what, std::vector<double> v) {
    const double med = quantile(v, 0.5), p99 = quantile(v, 0.99);
    std::printf("%-34s median %8.4f ms  p99 %8.4f ms  max %8.4f ms  (%zu)\n", what, med, p99,
                v.back(), v.size());
}

// Calls typed by the operator: half from the file (some with a typo), half made up.
std::vector<QString> typedCalls(const QByteArray& file, QRandomGenerator& rng) {
    QList<QByteArray> lines = file.split('\n');
    lines.removeIf([](const QByteArray& l) { return l.isEmpty() || l.startsWith('#'); });
    std::vector<QString> calls;
    for (int i = 0; i < 500; ++i) {
        QString c = QString::fromLatin1(lines[rng.bounded(int(lines.size()))]);
        if (i % 3 == 0) c[rng.bounded(int(c.size()))] = QChar('A' + rng.bounded(26));
        calls.push_back(c);
        calls.push_back(randomCall(rng));
    }
    return calls;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QFile f(kScp);
    if (!f.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "cannot read %s\n", qPrintable(kScp));
        return 1;
    }
    const QByteArray text = f.readAll();

    std::vector<double> loads;
    ScpIndex scp;
    for (int i = 0; i < 10; ++i) {
        const auto t0 = Steady::now();
        scp.loadFile(kScp);
        loads.push_back(ms(Steady::now() - t0));
    }
    std::printf("MASTER.SCP: %zu calls, %lld bytes\n", scp.size(),
                static_cast<long long>(text.size()));
    report("read and index the file", loads);

    QRandomGenerator rng(19);
    const std::vector<QString> calls = typedCalls(text, rng);
    std::vector<double> partial, oneoff, both;
    for (int round = 0; round < 2; ++round) { // the first round warms the caches
        partial.clear();
        oneoff.clear();
        both.clear();
        for (const QString& call : calls)
            for (qsizetype n = 2; n <= call.size(); ++n) {
                const QString typed = call.left(n);
                auto t0 = Steady::now();
                const QStringList a = scp.containing(typed, 40);
                const double tp = ms(Steady::now() - t0);
                double to = 0;
                if (n >= 3) {
                    t0 = Steady::now();
                    const QStringList b = scp.oneOff(typed, 40);
                    to = ms(Steady::now() - t0);
                    oneoff.push_back(to);
                }
                partial.push_back(tp);
                both.push_back(tp + to);
            }
    }
    report("partial (contains), per key", partial);
    report("one off, per key", oneoff);
    report("both lists, per key", both);

    // The window's part: both lists with the marks and the own log's one-off calls.
    QTemporaryDir dir;
    Databases dbs;
    openOrExit(dbs, dir.path());
    dbs.contest.begin();
    for (int i = 0; i < 5000; ++i)
        dbs.contest.run("INSERT INTO tbllog (ccall, bband, ps2) VALUES (?1, ?2, 'cqww')",
                        {randomCall(rng), QString::number(7 << rng.bounded(3))});
    dbs.contest.commit();
    WindowEnv windowEnv(dbs);
    Env& env = windowEnv.env;
    ContestForm form(env);
    form.Form_Load();
    form.contestcode = "cqww";
    form.cmbband_Click(3);
    // The first call typed reads the file.
    form.txtcall->setText("DL");
    const auto t0 = Steady::now();
    form.scplookup();
    std::printf("%-34s %8.2f ms\n", "first lookup, reading the file", ms(Steady::now() - t0));
    std::vector<double> window;
    for (int round = 0; round < 2; ++round) {
        window.clear();
        for (const QString& call : calls)
            for (qsizetype n = 1; n <= call.size(); ++n) {
                form.txtcall->setText(call.left(n));
                const auto k0 = Steady::now();
                form.scplookup();
                window.push_back(ms(Steady::now() - k0));
            }
    }
    report("window lists, 5000-QSO log, per key", window);
    return 0;
}
