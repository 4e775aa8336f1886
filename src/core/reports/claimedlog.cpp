#include "reports/claimedlog.h"
#include "contests/contestdef.h"

#include "country/russia.h"
#include "data/databases.h"
#include "data/schema.h"

#include <sqlite3.h>

#include <QStringList>

namespace hfc {

namespace {

bool isRussianPref(const QString& pref) {
    return pref == QLatin1String("UA") || pref == QLatin1String("UA9") ||
           pref == QLatin1String("UA2");
}

bool lookupPrefix(Db& dxcc, const QString& call, ResolvedCall& out) {
    if (call.isEmpty()) return false;
    QStringList marks, beginnings;
    for (qsizetype n = 1; n <= call.size(); ++n) {
        marks << QStringLiteral("?%1").arg(n);
        beginnings << call.left(n);
    }
    const QString sql = QStringLiteral("SELECT PREF, kont, strana FROM tbldxcc WHERE prf IN (%1) "
                                       "AND length(strana) > 0 ORDER BY length(prf) DESC, rowid "
                                       "LIMIT 1")
                            .arg(marks.join(QLatin1Char(',')));
    Stmt& s = dxcc.prepared(sql, beginnings);
    const bool found = s.step();
    if (found) {
        out.pref = s.text(0);
        out.kont = s.text(1);
        out.strana = s.text(2);
    }
    s.reset();
    return found;
}

// The Russian call areas, CQ-M's areas, the oblast and no country for /MM and /AM, on a call
// whose prefix row has been found; oblastOf gives the oblast code of a district key.
template <typename OblastOf>
void refine(const QString& contest, const QString& call, ResolvedCall& r, OblastOf oblastOf) {
    if (call.startsWith(QLatin1Char('R')) || isRussianPref(r.pref)) {
        refineRussianArea(call, r.pref, r.kont);
        if (contests::def(contest).cqmAreas) r.pref = cqmPrefix(call, r.pref);
        const QString key = russianDistrictKey(call);
        if (!key.isEmpty()) r.oblast = oblastOf(key);
    }
    if (call.endsWith(QLatin1String("/MM")) || call.endsWith(QLatin1String("/AM"))) {
        r.pref.clear();
        r.strana.clear();
    }
}

qint64 changesOf(const Db& db) {
    return db.handle() ? sqlite3_total_changes64(db.handle()) : 0;
}

// Above this many calls to resolve, reading the tables once is cheaper than a query per call.
constexpr size_t kTablesWorthReading = 200;

} // namespace

ResolvedCall resolveCall(Databases& db, const QString& contest, const QString& call) {
    ResolvedCall r;
    lookupPrefix(db.dxcc, call, r);
    refine(contest, call, r, [&db](const QString& key) {
        Stmt& s = db.rus.prepared(
            QStringLiteral("SELECT kodsrr FROM tblrus WHERE pref = ?1 LIMIT 1"), {key});
        const QString code = s.step() ? s.text(0) : QString();
        s.reset();
        return code;
    });
    return r;
}

CallTables::CallTables(Databases& db)
    : dxccHandle_(db.dxcc.handle()), rusHandle_(db.rus.handle()), dxccChanges_(changesOf(db.dxcc)),
      rusChanges_(changesOf(db.rus)) {
    // the first row of a prefix that names a country wins, as in the entry line's query
    Stmt& p = db.dxcc.prepared(QStringLiteral(
        "SELECT prf, PREF, kont, strana FROM tbldxcc WHERE length(strana) > 0 ORDER BY rowid"));
    while (p.step()) {
        const QString prf = p.text(0);
        if (!prf.isEmpty() && !prefixes_.contains(prf))
            prefixes_.insert(prf, Country{p.text(1), p.text(2), p.text(3)});
    }
    p.reset();
    Stmt& d = db.rus.prepared(QStringLiteral("SELECT pref, kodsrr FROM tblrus ORDER BY rowid"));
    while (d.step()) {
        const QString key = d.text(0);
        if (!districts_.contains(key)) districts_.insert(key, d.text(1));
    }
    d.reset();
}

ResolvedCall CallTables::resolve(const QString& contest, const QString& call) const {
    ResolvedCall r;
    // the longest beginning of the call that the table knows
    for (qsizetype n = call.size(); n > 0; --n) {
        const auto it = prefixes_.constFind(call.left(n));
        if (it == prefixes_.constEnd()) continue;
        r.pref = it->pref;
        r.kont = it->kont;
        r.strana = it->strana;
        break;
    }
    refine(contest, call, r, [this](const QString& key) { return districts_.value(key); });
    return r;
}

bool CallTables::current(Databases& db) const {
    return dxccHandle_ == db.dxcc.handle() && rusHandle_ == db.rus.handle() &&
           dxccChanges_ == changesOf(db.dxcc) && rusChanges_ == changesOf(db.rus);
}

void ResolvedCalls::prepare(Databases& db, size_t rows) {
    if (tables_ && !tables_->current(db)) {
        // an edited prefix or district table: every answer kept may have changed
        tables_.reset();
        calls_.clear();
    }
    if (!tables_ && rows >= kTablesWorthReading) tables_ = std::make_shared<CallTables>(db);
}

const ResolvedCall& ResolvedCalls::resolve(Databases& db, const QString& contest,
                                           const QString& call) {
    // CQ-M resolves Russian calls to its own areas: another contest, other answers
    if (contest != contest_) {
        calls_.clear();
        contest_ = contest;
    }
    auto it = calls_.find(call);
    if (it == calls_.end())
        it = calls_.insert(call, tables_ ? tables_->resolve(contest, call)
                                         : resolveCall(db, contest, call));
    return *it;
}

void ResolvedCalls::clear() {
    calls_.clear();
    tables_.reset();
}

contests::ScoreStation scoreStation(Databases& db, const QString& contest, const QString& owncall,
                                    const QString& myexch) {
    contests::ScoreStation st;
    st.call = owncall;
    st.myexch = myexch;
    ResolvedCall own = resolveCall(db, contest, owncall);
    if (own.kont.isEmpty()) {
        own.pref = QStringLiteral("UA");
        own.kont = QStringLiteral("EU");
    }
    st.pref = own.pref;
    st.kont = own.kont;
    if (contests::def(contest).qtc) st.qtcs = qtcCount(db);
    return st;
}

std::vector<contests::ScoreRow> scoreRows(Databases& db, const QString& contest, qint64 afterRowid,
                                          qint64* lastRowid, ResolvedCalls* cache) {
    std::vector<contests::ScoreRow> out;
    // By rowid, not by the contest's index: after each QSO only the rows past the last one seen
    // are read, whatever the size of the log.
    Stmt& st = db.contest.prepared(
        QStringLiteral("SELECT rowid, ccall, bband, ps1, rstr1, rstr2, PRF, mult, point, point2 "
                       "FROM tbllog WHERE +ps2 = ?1 AND rowid > ?2 AND ccall <> ?3 ORDER BY rowid"),
        {contest, QString::number(afterRowid), kPlaceholderCall});
    // Read straight into the rows the tally takes: a count of the whole log reads every row.
    while (st.step()) {
        contests::ScoreRow s;
        s.call = st.text(1);
        s.band = st.text(2);
        s.mode = st.text(3);
        s.report = st.text(4);
        s.exchange = st.text(5);
        s.prefix = st.text(6);
        s.mult = st.text(7);
        s.points = st.text(8).toLongLong();
        s.points2 = st.text(9).toLongLong();
        out.push_back(std::move(s));
        if (lastRowid) *lastRowid = std::max(*lastRowid, st.text(0).toLongLong());
    }
    st.reset();
    ResolvedCalls local;
    ResolvedCalls& seen = cache ? *cache : local;
    seen.prepare(db, out.size());
    for (contests::ScoreRow& s : out) {
        const ResolvedCall& c = seen.resolve(db, contest, s.call);
        s.pref = c.pref;
        s.kont = c.kont;
        s.oblast = c.oblast;
    }
    return out;
}

qint64 qtcCount(Databases& db) {
    // the QTC frame leaves ps1 empty; rows with a mode there are copies of log rows
    return db.contest
        .scalar(QStringLiteral("SELECT count(*) FROM tbllogTemp WHERE ifnull(ps1, '') = ''"))
        .toLongLong();
}

contests::ClaimedScore claimedScoreOfLog(Databases& db, const QString& contest,
                                         const QString& owncall, const QString& myexch) {
    return contests::claimedScore(contest, scoreRows(db, contest),
                                  scoreStation(db, contest, owncall, myexch));
}

} // namespace hfc
