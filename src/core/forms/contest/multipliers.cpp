// Is this multiplier new? One query against the log, and the two views of worked multipliers.
#include "contests/groups.h"
#include "data/db.h"
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

// The log rows within the first multiplier's scope, as an SQL condition; its value, if any, is
// appended to params and numbered after them.
QString ContestForm::firstMultScope(QStringList& params) const {
    switch (contests::multScope(contestcode)) {
    case contests::MultScope::Contest:
        return {};
    case contests::MultScope::SentReport:
        params << lblrsts->text();
        return QStringLiteral(" AND rsts = ?%1").arg(params.size());
    case contests::MultScope::Band:
        break;
    }
    params << curband;
    return QStringLiteral(" AND bband = ?%1").arg(params.size());
}

void ContestForm::multcheck() {
    QStringList params{multcand, contestcode};
    lastsql = QStringLiteral("SELECT 1 FROM tbllog WHERE mult = ?1 AND ps2 = ?2") +
              firstMultScope(params) + QStringLiteral(" LIMIT 1");
    txtmult->setText(logDb().exists(lastsql, params) ? QString() : multcand);
}

void ContestForm::pscheck() {
    // The second multiplier counts once per band in every contest.
    lastsql =
        QStringLiteral("SELECT 1 FROM tbllog WHERE ps = ?1 AND ps2 = ?2 AND bband = ?3 LIMIT 1");
    txtmult2->setText(logDb().exists(lastsql, {pscand, contestcode, curband}) ? QString() : pscand);
}

QSet<QString> ContestForm::workedFirstMults() {
    QStringList params{contestcode};
    const QStringList v = logDb().column(QStringLiteral("SELECT DISTINCT mult FROM tbllog WHERE "
                                                        "ps2 = ?1") +
                                             firstMultScope(params),
                                         params);
    return QSet<QString>(v.begin(), v.end());
}

QSet<QString> ContestForm::workedSecondMults() {
    const QStringList v = logDb().column(
        QStringLiteral("SELECT DISTINCT ps FROM tbllog WHERE ps2 = ?1 AND bband = ?2"),
        {contestcode, curband});
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
    QStringList params{contestcode};
    lastsql = QStringLiteral("SELECT mult FROM tbllog WHERE ps2 = ?1") + firstMultScope(params) +
              QStringLiteral(" AND NOT (length(mult) = 0) ORDER BY rowid");
    List1->setItems(logDb().column(lastsql, params));
}

void ContestForm::mnumzone_Click() {
    multwid->setVisible(!multwid->visible());
}

void ContestForm::multwid_Click() {
    multwid->setVisible(false);
}

} // namespace hfc
