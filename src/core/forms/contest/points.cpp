// QSO points of the entry line, by the rules of the current contest.
#include "contests/points.h"
#include "data/db.h"
#include "forms/contest/contestform.h"

namespace hfc {

namespace {

// Earlier QSOs of the current contest, as the points rules ask for them.
class ContestLog : public LogLookup {
  public:
    ContestLog(Db& db, const QString& contest) : db_(db), contest_(contest) {}
    bool reportInHour(const QString& report, const QString& hour) const override {
        return db_.exists(QStringLiteral("SELECT 1 FROM tbllog WHERE ps2 = ?1 AND rstr1 = ?2 "
                                         "AND substr(ttime, 1, 2) = ?3 LIMIT 1"),
                          {contest_, report, hour});
    }
    bool districtWorked(const QString& district) const override {
        // a UK exchange is the serial followed by the district's letters
        return db_.exists(QStringLiteral("SELECT 1 FROM tbllog WHERE ps2 = ?1 "
                                         "AND rstr2 GLOB '*[0-9]' || ?2 LIMIT 1"),
                          {contest_, district});
    }
    bool countryWorked(const QString& strana) const override {
        return db_.exists(
            QStringLiteral("SELECT 1 FROM tbllog WHERE ps2 = ?1 AND contr = ?2 LIMIT 1"),
            {contest_, strana});
    }

  private:
    Db& db_;
    const QString& contest_;
};

} // namespace

void ContestForm::registerPoints() {
    proc("qsopoints", [this] { qsopoints(); });
}

void ContestForm::qsopoints() {
    const PointsRule rule = pointsRule(contestcode);
    if (!rule) return;
    QsoFacts q;
    q.contest = contestcode;
    q.band = curband;
    q.mode = cmbmod->text();
    q.call = txtcall->text();
    q.pref = callpref;
    q.kont = callkont;
    q.strana = callstrana;
    q.prf = callprf;
    q.report = lblrstr->text();
    q.exchange = txtrstr->text();
    q.ownCall = TXTNCALL->text();
    q.ownPref = ownpref;
    q.ownKont = ownkont;
    q.ownPrf = ownprf;
    q.myexch = myexch;
    q.sentReport = lblrsts->text();
    q.time = txttime->text();
    const ContestLog log(logDb(), contestcode);
    if (scoringEntered) q.log = &log;
    const PointsResult r = rule(q);
    if (r.points) txtpoint->setText(*r.points);
    if (r.points2) txtpoint2->setText(*r.points2);
    if (r.clearMult) txtmult->setText(QString());
    if (r.clearMult2) txtmult2->setText(QString());
}

} // namespace hfc
