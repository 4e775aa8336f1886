// QSO points of the entry line, by the rules of the current contest.
#include "contests/points.h"
#include "forms/contest/contestform.h"

namespace hfc {

namespace {

// Earlier QSOs of the current contest, as the points rules ask for them.
class ContestLog : public LogLookup {
  public:
    ContestLog(LogStore& log, const QString& contest) : log_(log), contest_(contest) {}
    bool reportInHour(const QString& report, const QString& hour) const override {
        return log_.reportInHour(contest_, report, hour);
    }
    bool districtWorked(const QString& district) const override {
        return log_.districtWorked(contest_, district);
    }
    bool countryWorked(const QString& strana) const override {
        return log_.countryWorked(contest_, strana);
    }

  private:
    LogStore& log_;
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
    q.mode = curmode;
    q.call = txtcall->text();
    q.pref = draft().dxccPrefix;
    q.kont = draft().continent;
    q.strana = draft().country;
    q.prf = draft().prefix;
    q.report = lblrstr->text();
    q.exchange = txtrstr->text();
    q.ownCall = TXTNCALL->text();
    q.ownPref = ownpref;
    q.ownKont = ownkont;
    q.ownPrf = ownprf;
    q.myexch = myexch;
    q.sentReport = lblrsts->text();
    q.time = txttime->text();
    const ContestLog log(store(), contestcode);
    if (scoringEntered) q.log = &log;
    const PointsResult r = rule(q);
    if (r.points) setPoints(*r.points);
    if (r.points2) setPoints2(*r.points2);
    if (r.clearMult) setMult(QString());
    if (r.clearMult2) setMult2(QString());
}

} // namespace hfc
