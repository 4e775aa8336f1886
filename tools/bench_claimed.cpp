// Times the claimed score on a CQ WW log of 20k and 100k QSOs of real calls (MASTER.SCP): the
// full count (choosing the contest, a restart, an edit in the grid, a new own call) read by the
// report window and by lblscore, and lblscore's update after each committed QSO.
//   bench_claimed [MASTER.SCP]
#include "benchutil.h"
#include "country/callprefix.h"
#include "data/databases.h"
#include "forms/clock.h"
#include "forms/contest/contestform.h"
#include "reports/claimedlog.h"
#include "script/scriptedui.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <cstdio>

using namespace hfc;
using hfc::bench::openOrExit;
using hfc::bench::WindowEnv;

namespace {

const char* const kBands[] = {"1,8", "3,5", "7", "14", "21", "28"};

QStringList masterCalls(const QString& path) {
    QStringList calls;
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) return calls;
    while (!f.atEnd()) {
        const QString line = QString::fromLatin1(f.readLine()).trimmed();
        if (!line.isEmpty() && !line.startsWith(QLatin1Char('#'))) calls << line.toUpper();
    }
    return calls;
}

// qsos rows of "cqww" and a fifth as many of another contest, as a folder that held two logs.
void fill(Db& db, const QStringList& calls, int qsos) {
    db.exec("DELETE FROM tbllog");
    db.begin();
    for (int i = 0; i < qsos + qsos / 5; ++i) {
        const QString call = calls[(i * 7919) % calls.size()];
        db.run("INSERT INTO tbllog (ccall, bband, ps1, ps2, rstr1, rstr2, PRF, point, ttime) "
               "VALUES (?1, ?2, 'CW', ?3, '599', ?4, ?5, '3', '12:00:00')",
               {call, kBands[(i / 40) % 6],
                i < qsos ? QStringLiteral("cqww") : QStringLiteral("wpx"),
                QString::number(i % 40 + 1), callPrefix(call)});
    }
    db.commit();
}

double msOf(const std::function<void()>& f) {
    QElapsedTimer t;
    t.start();
    f();
    return double(t.nsecsElapsed()) / 1e6;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const QStringList calls =
        masterCalls(argc > 1 ? QString::fromLocal8Bit(argv[1])
                             : QStringLiteral("/usr/share/hamradio-files/MASTER.SCP"));
    if (calls.isEmpty()) {
        std::fprintf(stderr, "no calls: MASTER.SCP not readable\n");
        return 1;
    }
    QTemporaryDir dir;
    Databases dbs;
    openOrExit(dbs, dir.path());
    WindowEnv windowEnv(dbs);
    Env& env = windowEnv.env;

    for (int qsos : {20000, 100000}) {
        fill(dbs.contest, calls, qsos);
        std::printf("CQ WW log of %d QSOs (%lld calls of MASTER.SCP)\n", qsos,
                    static_cast<long long>(calls.size()));
        contests::ClaimedScore pure;
        const double report = msOf([&] { pure = claimedScoreOfLog(dbs, "cqww", "UA3ABC", "16"); });
        std::printf("  report window, full count   %8.1f ms  (%s)\n", report,
                    qPrintable(pure.breakdown));

        ContestForm form(env);
        form.Form_Load();
        form.contestcode = QStringLiteral("cqww");
        form.owncall = QStringLiteral("UA3ABC");
        form.myexch = QStringLiteral("16");
        form.cmbband_Click(3);
        const double first = msOf([&] { form.showClaimedScore(); });
        std::printf("  lblscore, full count        %8.1f ms  (%s)\n", first,
                    qPrintable(form.lblscore->text()));

        // An edit in the grid: the tally reads the log again, the resolved calls are kept.
        dbs.contest.exec("UPDATE tbllog SET rstr2 = '15' WHERE rowid = 1");
        const double edit = msOf([&] { form.showClaimedScore(); });
        std::printf("  lblscore, after an edit     %8.1f ms\n", edit);

        const int runs = 200;
        double perQso = 0;
        for (int i = 0; i < runs; ++i) {
            form.txtcall->setText(calls[(i * 104729 + 17) % calls.size()]);
            form.txtrstr->setText(QString::number(i % 40 + 1));
            form.txtpoint->setText(QStringLiteral("3"));
            form.wwodadd();
            perQso += msOf([&] { form.showClaimedScore(); });
        }
        std::printf("  lblscore, after each QSO    %8.3f ms  (%s)\n", perQso / runs,
                    qPrintable(form.lblscore->text()));

        // A new own call: the stored points of the contest again, then the count.
        const double own = msOf([&] {
            form.owncall = QStringLiteral("DL1ABC");
            form.resolveOwnCall(form.owncall);
            form.recomputeOwnPoints();
            form.showClaimedScore();
        });
        std::printf("  new own call, points+count  %8.1f ms  (%s)\n", own,
                    qPrintable(form.lblscore->text()));
    }
    return 0;
}
