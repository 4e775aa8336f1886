// Is this multiplier new? One query against the log, and the two views of worked multipliers.
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

void ContestForm::multcheck() {
    // A multiplier counts once per band, except in TOPS and WPX (once per contest) and VK/ZL
    // (once per sent report, on any band).
    QStringList params{multcand, contestcode};
    if (contestcode == QLatin1String("tops") || contestcode == QLatin1String("wpx")) {
        lastsql = QStringLiteral("SELECT 1 FROM tbllog WHERE mult = ?1 AND ps2 = ?2 LIMIT 1");
    } else if (contestcode == QLatin1String("vkzl")) {
        lastsql = QStringLiteral(
            "SELECT 1 FROM tbllog WHERE mult = ?1 AND ps2 = ?2 AND rsts = ?3 LIMIT 1");
        params << lblrsts->text();
    } else {
        lastsql = QStringLiteral(
            "SELECT 1 FROM tbllog WHERE mult = ?1 AND ps2 = ?2 AND bband = ?3 LIMIT 1");
        params << curband;
    }
    txtmult->setText(logDb().exists(lastsql, params) ? QString() : multcand);
}

void ContestForm::pscheck() {
    // The second multiplier counts once per band in every contest.
    lastsql =
        QStringLiteral("SELECT 1 FROM tbllog WHERE ps = ?1 AND ps2 = ?2 AND bband = ?3 LIMIT 1");
    txtmult2->setText(logDb().exists(lastsql, {pscand, contestcode, curband}) ? QString() : pscand);
}

void ContestForm::mnumdxcc_Click() {
    if (List1->visible()) {
        List1->setVisible(false);
        return;
    }
    List1->setVisible(true);
    fillList1();
}

// The worked first multipliers in the order they were logged, with the same scope as
// multcheck: this band, or the whole contest (TOPS, WPX), or this sent report (VK/ZL).
void ContestForm::fillList1() {
    QStringList params{contestcode};
    if (contestcode == QLatin1String("tops") || contestcode == QLatin1String("wpx")) {
        lastsql = QStringLiteral(
            "SELECT mult FROM tbllog WHERE ps2 = ?1 AND NOT (length(mult) = 0) ORDER BY rowid");
    } else if (contestcode == QLatin1String("vkzl")) {
        lastsql = QStringLiteral("SELECT mult FROM tbllog WHERE ps2 = ?1 AND rsts = ?2 "
                                 "AND NOT (length(mult) = 0) ORDER BY rowid");
        params << lblrsts->text();
    } else {
        lastsql = QStringLiteral("SELECT mult FROM tbllog WHERE ps2 = ?1 AND bband = ?2 "
                                 "AND NOT (length(mult) = 0) ORDER BY rowid");
        params << curband;
    }
    List1->setItems(logDb().column(lastsql, params));
}

void ContestForm::mnumzone_Click() {
    multwid->setVisible(!multwid->visible());
}

void ContestForm::multwid_Click() {
    multwid->setVisible(false);
}

} // namespace hfc
