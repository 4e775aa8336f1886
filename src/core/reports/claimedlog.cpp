#include "reports/claimedlog.h"

#include "country/russia.h"
#include "data/databases.h"
#include "data/schema.h"
#include "log/logstore.h"

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

} // namespace

ResolvedCall resolveCall(Databases& db, const QString& contest, const QString& call) {
    ResolvedCall r;
    lookupPrefix(db.dxcc, call, r);
    if (call.startsWith(QLatin1Char('R')) || isRussianPref(r.pref)) {
        refineRussianArea(call, r.pref, r.kont);
        if (contest == QLatin1String("cqm")) r.pref = cqmPrefix(call, r.pref);
        const QString key = russianDistrictKey(call);
        if (!key.isEmpty()) {
            Stmt& s = db.rus.prepared(
                QStringLiteral("SELECT kodsrr FROM tblrus WHERE pref = ?1 LIMIT 1"), {key});
            if (s.step()) r.oblast = s.text(0);
            s.reset();
        }
    }
    if (call.endsWith(QLatin1String("/MM")) || call.endsWith(QLatin1String("/AM"))) {
        r.pref.clear();
        r.strana.clear();
    }
    return r;
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
    if (contest == QLatin1String("wae")) st.qtcs = qtcCount(db);
    return st;
}

std::vector<contests::ScoreRow> scoreRows(Databases& db, const QString& contest, qint64 afterRowid,
                                          qint64* lastRowid, ResolvedCalls* cache) {
    std::vector<contests::ScoreRow> out;
    const Rows rows = LogStore(db.contest).scoreRows(contest, afterRowid);
    ResolvedCalls local;
    ResolvedCalls& seen = cache ? *cache : local;
    out.reserve(rows.size());
    for (const QStringList& r : rows) {
        contests::ScoreRow s;
        s.call = r[1];
        s.band = r[2];
        s.mode = r[3];
        s.report = r[4];
        s.exchange = r[5];
        s.prefix = r[6];
        s.mult = r[7];
        s.points = r[8].toLongLong();
        s.points2 = r[9].toLongLong();
        auto it = seen.find(s.call);
        if (it == seen.end()) it = seen.insert(s.call, resolveCall(db, contest, s.call));
        s.pref = it->pref;
        s.kont = it->kont;
        s.oblast = it->oblast;
        out.push_back(std::move(s));
        if (lastRowid) *lastRowid = std::max(*lastRowid, r[0].toLongLong());
    }
    return out;
}

qint64 qtcCount(Databases& db) {
    return LogStore(db.contest).qtcCount();
}

contests::ClaimedScore claimedScoreOfLog(Databases& db, const QString& contest,
                                         const QString& owncall, const QString& myexch) {
    return contests::claimedScore(contest, scoreRows(db, contest),
                                  scoreStation(db, contest, owncall, myexch));
}

} // namespace hfc
