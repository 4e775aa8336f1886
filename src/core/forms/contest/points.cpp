// QSO points of the entry line, by the rules of the current contest.
#include "contests/points.h"
#include "forms/contest/contestform.h"

namespace hfc {

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
    q.report = lblrstr->text();
    q.exchange = txtrstr->text();
    const PointsResult r = rule(q);
    if (r.points) txtpoint->setText(*r.points);
    if (r.points2) txtpoint2->setText(*r.points2);
    if (r.clearMult) txtmult->setText(QString());
    if (r.clearMult2) txtmult2->setText(QString());
    if (r.invalid) {
        txtrepit->setText(QStringLiteral("Неверно"));
        txtrepit->setVisible(true);
    }
}

} // namespace hfc
