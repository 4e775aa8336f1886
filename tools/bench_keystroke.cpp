// Cost of one keystroke in the callsign box (key down, key press, key up and the whole call
// path through wwodcall) on logs of 1k, 10k and 100k QSOs, next to the bare cost of the same
// SQL statements stepped directly through SQLite; and the cost of a commit and of the recount
// that follows it. Prints figures only. NOSYNC=1 commits without waiting for the disk, to show
// what the commit costs besides the fsync that makes it crash-safe.
#include "benchutil.h"
#include "data/databases.h"
#include "forms/clock.h"
#include "forms/contest/contestform.h"
#include "script/scriptedui.h"

#include <QCoreApplication>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <sqlite3.h>
#include <vector>

using namespace hfc;
using namespace hfc::bench;

namespace {

const QString Bands[6] = {"1,8", "3,5", "7", "14", "21", "28"};

struct Figures {
    double median, p99, max;
};

Figures figures(std::vector<double> v) {
    return {quantile(v, 0.5), quantile(v, 0.99), v.back()};
}

// The statements one keystroke runs, prepared once and stepped to the end as the window does.
struct BareSql {
    sqlite3_stmt* partial = nullptr;
    sqlite3_stmt* earlier = nullptr;
    sqlite3_stmt* country = nullptr;
    sqlite3_stmt* district = nullptr;
    sqlite3_stmt* mult = nullptr;
    sqlite3_stmt* ps = nullptr;
    std::vector<sqlite3_stmt*> all;

    sqlite3_stmt* prep(sqlite3* db, const char* sql) {
        sqlite3_stmt* s = nullptr;
        if (sqlite3_prepare_v3(db, sql, -1, SQLITE_PREPARE_PERSISTENT, &s, nullptr) != SQLITE_OK)
            std::fprintf(stderr, "prepare: %s\n", sqlite3_errmsg(db));
        all.push_back(s);
        return s;
    }
    ~BareSql() {
        for (sqlite3_stmt* s : all) sqlite3_finalize(s);
    }
    static void bind(sqlite3_stmt* s, int i, const QByteArray& v) {
        sqlite3_bind_text(s, i, v.constData(), int(v.size()), SQLITE_TRANSIENT);
    }
    // Steps to the end, reading every column as the window does; returns the first row.
    static std::vector<QByteArray> step(sqlite3_stmt* s) {
        std::vector<QByteArray> first;
        bool any = false;
        while (sqlite3_step(s) == SQLITE_ROW) {
            const int n = sqlite3_column_count(s);
            for (int c = 0; c < n; ++c) {
                const auto* t = reinterpret_cast<const char*>(sqlite3_column_text(s, c));
                if (!any) first.emplace_back(t ? t : "");
            }
            any = true;
        }
        sqlite3_reset(s);
        return first;
    }
    static QByteArray at(const std::vector<QByteArray>& row, size_t i) {
        return i < row.size() ? row[i] : QByteArray();
    }

    // One keystroke's statements for the call typed so far, with the candidates the window
    // derives from their results (country prefix as multiplier, CQ zone as exchange).
    void run(const QString& call, const QByteArray& contest, const QByteArray& band) {
        const QByteArray c = call.toUtf8();
        const QByteArray end = (call + QChar(0xFFFF)).toUtf8();
        bind(partial, 1, contest);
        bind(partial, 2, band);
        bind(partial, 3, c);
        bind(partial, 4, end);
        const QByteArray first = at(step(partial), 0);
        bind(earlier, 1, contest);
        bind(earlier, 2, first);
        step(earlier);
        // the prefix walk: every beginning of the call at once
        const int n = int(call.size());
        sqlite3_stmt* s = countryStmts[n];
        for (int i = 1; i <= n; ++i) bind(s, i, call.left(i).toUtf8());
        const std::vector<QByteArray> country = step(s);
        QByteArray cq = at(country, 4);
        if (call.size() > 3 && (call.startsWith('R') || at(country, 0).startsWith("UA"))) {
            bind(district, 1, call.mid(2, 2).toUtf8());
            const std::vector<QByteArray> d = step(district);
            if (!d.empty()) cq = d[1];
        }
        if (cq.size() == 1) cq.prepend('0');
        bind(mult, 1, at(country, 0));
        bind(mult, 2, contest);
        bind(mult, 3, band);
        step(mult);
        bind(ps, 1, cq);
        bind(ps, 2, contest);
        bind(ps, 3, band);
        step(ps);
    }
    std::vector<sqlite3_stmt*> countryStmts;

    BareSql(sqlite3* log, sqlite3* dxcc, sqlite3* rus) {
        partial = prep(log, "SELECT DISTINCT ccall FROM tbllog WHERE ps2 = ?1 AND bband = ?2 AND "
                            "ccall >= ?3 AND ccall < ?4 ORDER BY ccall");
        earlier = prep(log, "SELECT ccall, ddate, ttime, bband, rsts1, rsts2, rstr1, rstr2, mult, "
                            "ps, point, point2, ps1 FROM tbllog WHERE ps2 = ?1 AND ccall = ?2 "
                            "ORDER BY rowid");
        district = prep(rus, "SELECT itu, cq, kodsrr FROM tblrus WHERE pref = ?1 LIMIT 1");
        mult =
            prep(log, "SELECT 1 FROM tbllog WHERE mult = ?1 AND ps2 = ?2 AND bband = ?3 LIMIT 1");
        ps = prep(log, "SELECT 1 FROM tbllog WHERE ps = ?1 AND ps2 = ?2 AND bband = ?3 LIMIT 1");
        countryStmts.push_back(nullptr);
        for (int n = 1; n <= 14; ++n) {
            QStringList marks;
            for (int i = 1; i <= n; ++i) marks << QStringLiteral("?%1").arg(i);
            const QByteArray sql =
                QStringLiteral("SELECT PREF, kont, strana, iaru, cq FROM tbldxcc WHERE prf IN "
                               "(%1) AND length(strana) > 0 ORDER BY length(prf) DESC, rowid "
                               "LIMIT 1")
                    .arg(marks.join(','))
                    .toUtf8();
            countryStmts.push_back(prep(dxcc, sql.constData()));
        }
    }
};

void fillLog(Db& db, int qsos, QRandomGenerator& rng, std::vector<QString>& logged) {
    db.begin();
    for (int i = 0; i < qsos; ++i) {
        const QString call = randomCall(rng);
        const QString band = Bands[rng.bounded(6)];
        const QString zone = QString::number(1 + rng.bounded(40));
        db.run("INSERT INTO tbllog (ccall, ddate, ttime, bband, rsts, rstr, rsts1, rsts2, rstr1, "
               "rstr2, mult, ps, point, point2, contr, PRF, ps1, ps2) VALUES (?1, '30.11.02', "
               "'12:00', ?2, '599', '599', '599', '16', '599', ?3, ?4, ?3, '3', '', 'X', ?5, "
               "'CW', 'cqww')",
               {call, band, zone.rightJustified(2, '0'), call.left(2), call.left(3)});
        if (band == QLatin1String("14")) logged.push_back(call);
    }
    db.commit();
}

void benchLog(int qsos) {
    QTemporaryDir dir;
    Databases dbs;
    QString error;
    if (!dbs.open(dir.path(), error)) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return;
    }
    QRandomGenerator rng(qsos);
    std::vector<QString> logged;
    fillLog(dbs.contest, qsos, rng, logged);
    if (qgetenv("ANALYZE") == "1") dbs.contest.exec("ANALYZE");
    if (qgetenv("NOSYNC") == "1") dbs.contest.exec("PRAGMA synchronous=OFF");

    ScriptedUi ui;
    FixedClock clock;
    clock.set(QDateTime(QDate(2002, 11, 30), QTime(15, 5)),
              QDateTime(QDate(2002, 11, 30), QTime(12, 5)));
    Env env;
    env.db = &dbs;
    env.ui = &ui;
    env.clock = &clock;
    ContestForm form(env);
    form.Form_Load();
    // Chosen as the operator does, with the window idle after it (where the worked calls are
    // read), so the first call typed below costs what it costs after a start.
    ui.queueInput(QStringLiteral("16"));
    form.fire(QStringLiteral("mnucqww_Click"));
    QCoreApplication::processEvents();
    form.contestcode = "cqww";
    form.cqfill = 0;
    form.dxccmult = 0;
    form.exchmult = 0;
    form.fixexch = 1;
    form.cmbband_Click(3);

    // Half the calls are in the log on this band (repeats), half are new.
    std::vector<QString> calls;
    for (int i = 0; i < 150; ++i) calls.push_back(logged[rng.bounded(int(logged.size()))]);
    for (int i = 0; i < 150; ++i) calls.push_back(randomCall(rng));

    std::vector<double> keys, bare;
    double firstCall = 0; // the slowest key of the first call typed after the contest's choice
    for (int round = 0; round < 2; ++round) { // the first round warms the caches
        keys.clear();
        for (const QString& call : calls) {
            form.setFocus("txtcall");
            form.txtcall->setText("");
            for (const QChar ch : call) {
                const auto t0 = Steady::now();
                form.typeChar(ch);
                keys.push_back(ms(Steady::now() - t0));
            }
            if (round == 0 && &call == &calls.front())
                firstCall = *std::max_element(keys.begin(), keys.end());
        }
    }
    {
        BareSql sql(dbs.contest.handle(), dbs.dxcc.handle(), dbs.rus.handle());
        for (int round = 0; round < 2; ++round) {
            bare.clear();
            for (const QString& call : calls)
                for (qsizetype n = 1; n <= call.size(); ++n) {
                    const auto t0 = Steady::now();
                    sql.run(call.left(n), "cqww", "14");
                    bare.push_back(ms(Steady::now() - t0));
                }
        }
    }

    // Commit and the recount that follows it (the focus returning to the callsign box).
    std::vector<double> commits, recounts;
    for (int i = 0; i < 100; ++i) {
        form.setFocus("txtrstr");
        form.txtcall->setText(randomCall(rng));
        form.txtrstr->setText("14");
        auto t0 = Steady::now();
        form.wwodadd();
        commits.push_back(ms(Steady::now() - t0));
        t0 = Steady::now();
        form.txtcall_GotFocus();
        recounts.push_back(ms(Steady::now() - t0));
    }

    const Figures k = figures(keys), b = figures(bare), c = figures(commits), r = figures(recounts);
    std::printf("%7d QSOs  keystroke  median %7.3f ms  p99 %7.3f ms  max %7.3f ms  (%zu keys)\n",
                qsos, k.median, k.p99, k.max, keys.size());
    std::printf("%7s       bare SQL   median %7.3f ms  p99 %7.3f ms  max %7.3f ms  "
                "p99 ratio %.2f\n",
                "", b.median, b.p99, b.max, k.p99 / b.p99);
    std::printf("%7s       first call typed: slowest key %7.3f ms\n", "", firstCall);
    std::printf("%7s       commit     median %7.3f ms  p99 %7.3f ms\n", "", c.median, c.p99);
    std::printf("%7s       recount    median %7.3f ms  p99 %7.3f ms\n", "", r.median, r.p99);
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    for (int n : {1000, 10000, 100000}) benchLog(n);
    return 0;
}
