// Times nextserial and recount on logs of 10k and 100k QSOs spread over several contests: the
// first count of a contest's log, and the recount after each committed QSO.
#include "benchutil.h"
#include "data/databases.h"
#include "forms/clock.h"
#include "forms/contest/contestform.h"
#include "script/scriptedui.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <cstdio>

using namespace hfc;
using hfc::bench::openOrExit;
using hfc::bench::WindowEnv;

namespace {

const char* const kContests[] = {"cqww", "wpx", "chemp", "ea", "lzo"};
const char* const kBands[] = {"1,8", "3,5", "7", "14", "21", "28", "sat"};

void fill(Db& db, int qsos) {
    db.exec("DELETE FROM tbllog");
    db.begin();
    for (int i = 0; i < qsos; ++i) {
        const QString call = QStringLiteral("UA%1X%2").arg(i % 10).arg(i, 5, 36, QChar('A'));
        db.run("INSERT INTO tbllog (ccall, bband, ps2, mult, ps, point, point2, rstr2) "
               "VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8)",
               {i % 97 == 0 ? QStringLiteral("\"") : call, kBands[(i / 5) % 7], kContests[i % 5],
                (i % 3) ? QStringLiteral("P%1").arg(i % 340) : QString(),
                QString::number(i % 40 + 1), QString::number(i % 25 + 1), QString::number(i % 3),
                QString::number(i % 1000)});
    }
    db.commit();
}

// The per-band figures as the plain record counts of the log queries, band by band.
bool agrees(Db& db, ContestForm& form) {
    if (form.contestcode == QLatin1String("chemp")) return true;
    for (int b = 0; b < 7; ++b) {
        const QStringList p{form.cmbband[b]->text(), form.contestcode};
        const int q = db.count("SELECT ccall FROM tbllog WHERE bband = ?1 AND ccall <> '\"' "
                               "AND ps2 = ?2",
                               p);
        const int m = db.count("SELECT DISTINCT mult FROM tbllog WHERE bband = ?1 "
                               "AND length(mult) > 0 AND ps2 = ?2",
                               p);
        const int m1 = db.count("SELECT DISTINCT ps FROM tbllog WHERE bband = ?1 "
                                "AND length(ps) > 0 AND ps2 = ?2",
                                p);
        if (form.qsoband[b]->text() != QString::number(q) ||
            form.multband[b]->text() != QString::number(m) ||
            form.multband1[b]->text() != QString::number(m1))
            return false;
    }
    return true;
}

double msPer(int runs, const std::function<void()>& f) {
    QElapsedTimer t;
    t.start();
    for (int i = 0; i < runs; ++i) f();
    return t.nsecsElapsed() / 1e6 / runs;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QTemporaryDir dir;
    Databases dbs;
    openOrExit(dbs, dir.path());
    WindowEnv windowEnv(dbs);
    Env& env = windowEnv.env;

    int status = 0;
    for (int qsos : {10000, 100000}) {
        fill(dbs.contest, qsos);
        std::printf("log of %d QSOs over %zu contests\n", qsos, std::size(kContests));
        for (const char* code : kContests) {
            // A new window counts the contest's whole log once, as on selecting the contest.
            ContestForm form(env);
            form.Form_Load();
            form.contestcode = QString::fromLatin1(code);
            form.fixexch = 0;
            form.cmbband_Click(3);
            const double full = msPer(1, [&] {
                form.nextserial();
                form.recount();
            });
            // Then each QSO: a commit and the focus back in the callsign box, which runs
            // nextserial and recount; only the recount side is timed.
            const int runs = 50;
            double perQso = 0;
            for (int i = 0; i < runs; ++i) {
                form.txtcall->setText(QStringLiteral("UA%1ZZ").arg(i));
                form.txtmult->setText(QStringLiteral("P%1").arg(i % 7));
                form.txtmult2->setText(QString::number(i % 40));
                form.txtpoint->setText(QStringLiteral("3"));
                form.wwodadd();
                perQso += msPer(1, [&] {
                    form.nextserial();
                    form.recount();
                });
            }
            const bool ok = agrees(dbs.contest, form);
            std::printf("  %-6s first count %7.3f ms  after a QSO %7.3f ms  (qsotot %s, "
                        "multtot %s)%s\n",
                        code, full, perQso / runs, qPrintable(form.qsotot->text()),
                        qPrintable(form.multtot->text()), ok ? "" : "  MISMATCH");
            if (!ok) status = 1;
        }
    }
    return status;
}
