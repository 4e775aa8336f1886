// The log's session: the own call, contest, own exchange, band and mode kept in the log
// database and brought back at start; the stored points recomputed when the own call changes;
// the claimed score of lblscore, kept up to date after each QSO.
#include "data/session.h"
#include "contests/claimedscore.h"
#include "contests/contestdef.h"
#include "contests/points.h"
#include "data/databases.h"
#include "data/schema.h"
#include "forms/contest/contestform.h"
#include "reports/claimedlog.h"

#include <sqlite3.h>

namespace hfc {

using K = Control::Kind;

// The claimed score's running tally and the resolved countries of the calls it has seen.
struct ContestForm::ClaimState {
    QString contest, owncall;
    qint64 changes = -1; // the log's change count the tally is in step with
    qint64 lastRowid = 0;
    contests::ClaimedTally tally;
    ResolvedCalls resolved; // of contest: a count after an edit reads the log, not the tables
};

void ContestForm::registerSession() {
    lblscore = add("lblscore", K::Label, "Заявка: 0");
    lblscore->setTooltip("Заявленный результат по правилам организатора: очки × множители");
    proc("restoreSession", [this] { restoreSession(); });
    proc("recomputeOwnPoints", [this] { recomputeOwnPoints(); });
    proc("showClaimedScore", [this] { showClaimedScore(); });
}

void ContestForm::keepSession(const QString& key, const QString& value) {
    const auto kept = sessionKept.constFind(key);
    if (kept != sessionKept.constEnd() && *kept == value) return;
    Db& db = logDb();
    const qint64 before = sqlite3_total_changes64(db.handle());
    try {
        // Told to the worked calls as a write of no QSO: unexplained, it would have them read
        // the whole contest again at the next key after every band change.
        const LogStore::KnownWrites known(store());
        saveSessionValue(db, key, value);
        sessionKept.insert(key, value);
    } catch (const DbError&) {
        // The QSOs are safe whatever happens here; only the next start has to be told again.
        return;
    }
    // The session row is no QSO: the figures kept for the log stay in step with it, so a band
    // change does not cost a count of the whole log at the next QSO.
    if (sqlite3_total_changes64(db.handle()) != before + 1) return;
    tally().touched({});
    if (claim_ && claim_->changes == before) claim_->changes = before + 1;
    if (grid3changes == before) grid3changes = before + 1;
}

void ContestForm::restoreSession() {
    const Session s = loadSession(logDb());
    sessionKept = {{QStringLiteral("owncall"), s.owncall},
                   {QStringLiteral("contest"), s.contest},
                   {QStringLiteral("myexch"), s.myexch},
                   {QStringLiteral("band"), s.band},
                   {QStringLiteral("mode"), s.mode}};
    if (!s.owncall.isEmpty()) {
        owncall = s.owncall;
        resolveOwnCall(owncall);
    }
    // The mode before the contest: the championship sets its exchange up by the mode.
    if (s.mode == QLatin1String("SSB") && curmode == QLatin1String("CW")) cmbmod_Click();
    const contests::ContestDef* c = contests::find(s.contest);
    if (c) {
        selectContest(QLatin1String(c->menuItem), &s.myexch);
        // Also for the contests whose menu item keeps the totals as they were: at start there
        // is nothing to keep, and the operator wants to see the log.
        nextserial();
        recount();
        refreshLogGrid();
    }
    for (int b = 0; b < 7; ++b)
        if (!s.band.isEmpty() && cmbband[b]->text() == s.band) cmbband_Click(b);
}

// The points of every QSO of the chosen contest again, from the own station as it is now. The
// bonuses that read earlier QSOs (RSGB, the championship's correspondents) do not depend on the
// own call and stay.
bool ContestForm::recomputeOwnPoints() {
    const PointsRule rule = pointsRule(contestcode);
    if (!rule) return false;
    const Rows rows = store().pointsInputs(contestcode);
    std::vector<std::pair<QString, QString>> changed; // rowid, points
    ResolvedCalls calls;
    calls.prepare(*env().db, rows.size());
    for (const QStringList& r : rows) {
        if (r[3] == QLatin1String("DUPE")) continue;
        const ResolvedCall& c = calls.resolve(*env().db, contestcode, r[1]);
        QsoFacts q;
        q.contest = contestcode;
        q.band = r[2];
        q.mode = r[3];
        q.call = r[1];
        q.pref = c.pref;
        q.kont = c.kont;
        q.strana = c.strana;
        q.prf = r[9];
        q.report = r[4];
        q.exchange = r[5];
        q.ownCall = owncall.isEmpty() ? TXTNCALL->text() : owncall;
        q.ownPref = ownpref;
        q.ownKont = ownkont;
        q.ownPrf = ownprf;
        q.myexch = myexch;
        q.sentReport = r[6];
        q.time = r[7];
        const PointsResult p = rule(q);
        if (p.points && *p.points != r[8]) changed.emplace_back(r[0], *p.points);
    }
    if (changed.empty()) return false;
    // One transaction: the log holds the old points or the new ones, never half of each.
    store().setPoints(changed);
    return true;
}

void ContestForm::showClaimedScore() {
    if (!claim_) claim_ = std::make_shared<ClaimState>();
    ClaimState& c = *claim_;
    Databases& dbs = *env().db;
    const qint64 changes = sqlite3_total_changes64(logDb().handle());
    bool fresh = c.contest != contestcode || c.owncall != owncall || c.changes < 0;
    if (!fresh && changes != c.changes) {
        // One write since the last look, and it added a row: the QSO just logged. Anything
        // else (an edit, a clearing, a QTC) counts the log again.
        const auto added = changes == c.changes + 1
                               ? scoreRows(dbs, contestcode, c.lastRowid, &c.lastRowid, &c.resolved)
                               : std::vector<contests::ScoreRow>{};
        if (added.size() == 1)
            c.tally.add(added.front());
        else
            fresh = true;
    }
    if (fresh) {
        c.contest = contestcode;
        c.owncall = owncall;
        c.lastRowid = 0;
        c.tally = contests::ClaimedTally(
            contestcode,
            scoreStation(dbs, contestcode, owncall.isEmpty() ? TXTNCALL->text() : owncall, myexch));
        for (const contests::ScoreRow& r :
             scoreRows(dbs, contestcode, 0, &c.lastRowid, &c.resolved))
            c.tally.add(r);
    }
    c.changes = changes;
    lblscore->setText(QStringLiteral("Заявка: ") + c.tally.result().breakdown);
}

} // namespace hfc
