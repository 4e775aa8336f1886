// Country, continent, zones and prefix of the typed call.
#include "country/callprefix.h"
#include "country/russia.h"
#include "data/databases.h"
#include "entry/entrysession.h"
#include "forms/contest/contestform.h"

#include <vector>

namespace hfc {

void ContestForm::registerCountry() {
    proc("STRAN", [this] { STRAN(); });
    proc("RUS", [this] { RUS(); });
    proc("rusdx", [this] { rusdx(); });
    proc("CQM", [this] { CQM(); });
    proc("EU13", [this] { EU13(); });
    proc("eucountry", [this] { eucountry(); });
    proc("callprefix", [this] { callprefix(); });
    var("ownpref", ownpref);
    var("ownkont", ownkont);
    var("owncq", owncq);
    var("ownitu", ownitu);
    var("ownprf", ownprf);
}

namespace {

// One statement per call length: every beginning of the call is looked up at once and the
// longest one that names a country wins. Each call length keeps its own prepared statement, so
// a keystroke costs one indexed query and no SQL parsing. (A copy of the 27k prefixes in memory
// would be a little faster but would go stale when the prefix table is edited.)
const QString& prefixSql(qsizetype n) {
    static std::vector<QString> cache;
    if (cache.size() <= size_t(n)) cache.resize(n + 1);
    QString& sql = cache[n];
    if (sql.isEmpty()) {
        QStringList marks;
        for (qsizetype i = 1; i <= n; ++i) marks << QStringLiteral("?%1").arg(i);
        sql = QStringLiteral("SELECT PREF, kont, strana, iaru, cq FROM tbldxcc WHERE prf IN (%1) "
                             "AND length(strana) > 0 ORDER BY length(prf) DESC, rowid LIMIT 1")
                  .arg(marks.join(QLatin1Char(',')));
    }
    return sql;
}

} // namespace

bool ContestForm::lookupCountry(const QString& call, CountryRow& out) {
    if (call.isEmpty()) return false;
    QStringList beginnings;
    beginnings.reserve(call.size());
    for (qsizetype n = 1; n <= call.size(); ++n) beginnings << call.left(n);
    Stmt& s = env().db->dxcc.prepared(prefixSql(call.size()), beginnings);
    const bool found = s.step();
    if (found) {
        out.pref = s.text(0);
        out.kont = s.text(1);
        out.strana = s.text(2);
        out.itu = s.text(3);
        out.cq = s.text(4);
    }
    s.reset();
    return found;
}

bool ContestForm::lookupDistrict(const QString& key, QString* itu, QString* cq, QString* code) {
    if (key.isEmpty()) return false;
    Stmt& s = env().db->rus.prepared(
        QStringLiteral("SELECT itu, cq, kodsrr FROM tblrus WHERE pref = ?1 LIMIT 1"), {key});
    const bool found = s.step();
    if (found) {
        if (itu) *itu = s.text(0);
        if (cq) *cq = s.text(1);
        if (code) *code = s.text(2);
    }
    s.reset();
    return found;
}

void ContestForm::STRAN() {
    const QString call = txtcall->text();
    // Nothing found keeps the values of the previous call.
    QsoDraft& d = draft();
    CountryRow row{d.dxccPrefix, d.continent, d.country, d.itu, d.cq};
    if (resolveCall(call, row)) txtstran5->setText(row.strana);
    d.country = row.strana;
    d.continent = row.kont;
    d.dxccPrefix = row.pref;
    d.itu = row.itu;
    d.cq = row.cq;
}

bool ContestForm::resolveCall(const QString& call, CountryRow& row) {
    const bool found = lookupCountry(call, row);
    if (call.startsWith(QLatin1Char('R')) || row.pref == QLatin1String("UA9") ||
        row.pref == QLatin1String("UA2") || row.pref == QLatin1String("UA"))
        refineRussian(call, row);
    row.itu = padZone(row.itu);
    row.cq = padZone(row.cq);
    // Maritime and aeronautical mobiles are in no country: they count for their zone only.
    if (call.endsWith(QLatin1String("/MM")) || call.endsWith(QLatin1String("/AM"))) {
        row.pref.clear();
        row.strana.clear();
    }
    return found;
}

void ContestForm::refineRussian(const QString& call, CountryRow& row) {
    refineRussianArea(call, row.pref, row.kont);
    if (contestDef().cqmAreas) row.pref = cqmPrefix(call, row.pref);
    // A district the table does not know keeps the zones of the prefix table.
    if (call.size() > 3) lookupDistrict(russianDistrictKey(call), &row.itu, &row.cq, nullptr);
}

void ContestForm::RUS() {
    QsoDraft& d = draft();
    CountryRow row{d.dxccPrefix, d.continent, d.country, d.itu, d.cq};
    refineRussian(txtcall->text(), row);
    d.dxccPrefix = row.pref;
    d.continent = row.kont;
    d.itu = row.itu;
    d.cq = row.cq;
}

void ContestForm::rusdx() {
    QString code;
    lookupDistrict(russianDistrictKey(txtcall->text()), nullptr, nullptr, &code);
    draft().district = code;
}

void ContestForm::CQM() {
    draft().dxccPrefix = cqmPrefix(txtcall->text(), draft().dxccPrefix);
}

void ContestForm::EU13() {
    setPoints(eu13Points(draft().continent));
}

void ContestForm::eucountry() {
    const contests::EntryRule rule = contestDef().extra;
    QsoDraft& d = draft();
    if (rule == contests::EntryRule::UbaCountries) {
        if (d.dxccPrefix == QLatin1String("ON")) {
            setPoints(QStringLiteral("10"));
            d.multCandidate = d.dxccPrefix;
            multcheck();
            return;
        }
        setPoints(QStringLiteral("0"));
        if (inEuropeanList(d.dxccPrefix)) {
            d.multCandidate = d.dxccPrefix;
            multcheck();
            setPoints(QStringLiteral("3"));
        }
        if (d.points == QLatin1String("0")) setPoints(QStringLiteral("1"));
    } else if (rule == contests::EntryRule::YuCountry) {
        if (d.dxccPrefix == QLatin1String("YU")) {
            d.multCandidate = d.dxccPrefix;
            multcheck();
        } else {
            setPoints(QStringLiteral("0"));
            setMult(QString());
        }
    }
}

void ContestForm::callprefix() {
    const QString call = txtcall->text();
    if (call.size() > 1) draft().prefix = callPrefix(call);
}

void ContestForm::resolveOwnCall(const QString& typed) {
    // The own station resolves like a worked call, whole as typed. Until it names a country
    // (an empty box, the prompt text) the station counts as one in European Russia.
    const QString call = typed.isEmpty() ? TXTNCALL->text() : typed;
    CountryRow row;
    if (!lookupCountry(call, row)) {
        row = CountryRow{};
        row.pref = QStringLiteral("UA");
        row.kont = QStringLiteral("EU");
    }
    ownpref = row.pref;
    ownkont = row.kont;
    ownitu = row.itu;
    owncq = row.cq;
    ownprf = call.size() > 1 ? callPrefix(call) : QString();
    if (call.startsWith(QLatin1Char('R')) || ownpref.startsWith(QLatin1String("UA"))) {
        refineRussianArea(call, ownpref, ownkont);
        if (call.size() > 3) lookupDistrict(russianDistrictKey(call), &ownitu, &owncq, nullptr);
    }
    ownitu = padZone(ownitu);
    owncq = padZone(owncq);
}

} // namespace hfc
