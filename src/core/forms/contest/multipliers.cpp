// Is this multiplier new? One query against the log, and the two views of worked multipliers.
#include "contests/groups.h"
#include "entry/entrysession.h"
#include "forms/contest/contestform.h"

namespace hfc {

void ContestForm::registerMultipliers() {
    proc("multcheck", [this] { multcheck(); });
    proc("pscheck", [this] { pscheck(); });
    proc("mnumdxcc_Click", [this] { mnumdxcc_Click(); });
    proc("mnumzone_Click", [this] { mnumzone_Click(); });
    proc("multwid_Click", [this] { multwid_Click(); });
    proc("fillList1", [this] { fillList1(); });
    var("lastsql", lastsql);
}

// Where the first multiplier counts once, for the log's questions.
LogStore::Scope ContestForm::firstMultScope() const {
    switch (contests::multScope(contestcode)) {
    case contests::MultScope::Contest:
        return {LogStore::Within::Contest, {}};
    case contests::MultScope::SentReport:
        return {LogStore::Within::SentReport, lblrsts->text()};
    case contests::MultScope::Band:
        break;
    }
    return {LogStore::Within::Band, curband};
}

void ContestForm::multcheck() {
    session().checkFirstMult(draft().multCandidate, firstMultScope());
    lastsql = store().lastSql();
    txtmult->setText(session().draft().mult); // on every keystroke: only the box that changed
}

void ContestForm::pscheck() {
    // The second multiplier counts once per band in every contest.
    session().draft().band = curband;
    session().checkSecondMult(draft().psCandidate);
    lastsql = store().lastSql();
    txtmult2->setText(session().draft().mult2);
}

QSet<QString> ContestForm::workedFirstMults() {
    const QStringList v = store().firstMults(contestcode, firstMultScope());
    return QSet<QString>(v.begin(), v.end());
}

QSet<QString> ContestForm::workedSecondMults() {
    const QStringList v = store().secondMultsOnBand(contestcode, curband);
    return QSet<QString>(v.begin(), v.end());
}

void ContestForm::mnumdxcc_Click() {
    if (List1->visible()) {
        List1->setVisible(false);
        return;
    }
    List1->setVisible(true);
    fillList1();
}

// The worked first multipliers in the order they were logged, in the scope multcheck uses.
void ContestForm::fillList1() {
    List1->setItems(store().firstMultsInOrder(contestcode, firstMultScope()));
    lastsql = store().lastSql();
}

void ContestForm::mnumzone_Click() {
    multwid->setVisible(!multwid->visible());
}

void ContestForm::multwid_Click() {
    multwid->setVisible(false);
}

} // namespace hfc
