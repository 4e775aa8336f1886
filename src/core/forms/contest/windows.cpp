#include "forms/contest/contestform.h"

#include "data/databases.h"
#include "forms/otchet/otchetform.h"

namespace hfc {

void ContestForm::registerWindows() {
    proc("cmbotchet_Click", [this] { cmbotchet_Click(); });
}

void ContestForm::mnupol_Click() {}

// The report window prints the contest title kept with the station data, so the current title
// is stored before the window opens.
void ContestForm::cmbotchet_Click() {
    tcont->setText(LBLCONTEST->text());
    try {
        logDb().run(QStringLiteral("UPDATE tbltit SET contest = ?1"), {tcont->text()});
    } catch (const DbError&) {
        // The window still opens; its own title box can be filled in by hand.
    }
    Form* f = subForms_.value(QStringLiteral("otchet"));
    if (!f) {
        f = new OtchetForm(
            env(), [this] { return contestcode; }, this);
        subForms_.insert(QStringLiteral("otchet"), f);
    }
    emit formOpened(f);
    f->show();
}

void ContestForm::mnudxcc_Click() {}
void ContestForm::mnurusdx_Click() {}

} // namespace hfc
