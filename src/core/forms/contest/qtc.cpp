#include "forms/contest/contestform.h"

#include "data/databases.h"

namespace hfc {

void ContestForm::registerQtc() {
    proc("mnuQTC_Click", [this] { mnuQTC_Click(); });
}

void ContestForm::txtqtcnr_KeyPress(Event&) {}
void ContestForm::txtqtc_KeyPress(Event&) {}
void ContestForm::txtqtc_KeyUp(Event&) {}
void ContestForm::cmbqtc1_Click() {}

void ContestForm::mnuQTC_Click() {
    // QTC rows are kept nowhere else: back them up unless a clearing just did.
    if (!logBackedUp_ && logDb().exists(QStringLiteral("SELECT 1 FROM tbllogTemp LIMIT 1")) &&
        !backupLog())
        return;
    logDb().exec(QStringLiteral("DELETE FROM tbllogTemp"));
}

void ContestForm::qtcfill() {}
void ContestForm::qtcreset() {}
void ContestForm::qtcrefresh() {}

} // namespace hfc
