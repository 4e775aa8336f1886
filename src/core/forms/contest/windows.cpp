#include "forms/contest/contestform.h"

#include "data/databases.h"
#include "forms/chooser/chooserform.h"
#include "forms/dxcc1/dxcc1form.h"
#include "forms/frmhelp/frmhelpform.h"
#include "forms/otchet/otchetform.h"
#include "forms/rusdx/rusdxform.h"

namespace hfc {

namespace {

// Shows a window created once and kept; a window opened anew (first time or after it was
// closed) is loaded first, as a freshly opened window.
void openWindow(ContestForm& owner, Form* w) {
    if (!w->isShown()) w->fire(QStringLiteral("Form_Load"));
    emit owner.formOpened(w);
    w->show();
}

} // namespace

void ContestForm::registerWindows() {
    proc("mnupol_Click", [this] { mnupol_Click(); });
    proc("cmbotchet_Click", [this] { cmbotchet_Click(); });
    proc("mnudxcc_Click", [this] { mnudxcc_Click(); });
    proc("mnurusdx_Click", [this] { mnurusdx_Click(); });
    mnufind = add("mnufind", Control::Kind::Menu, "Найти соревнование…");
    mnufind->setExtra(QStringLiteral("parent"), QStringLiteral("cmbadd1"));
    proc("mnufind_Click", [this] { mnufind_Click(); });
}

void ContestForm::mnupol_Click() {
    auto* w = static_cast<FrmHelpForm*>(subForms_.value("frmhelp"));
    if (!w) subForms_.insert("frmhelp", w = new FrmHelpForm(env(), this));
    w->contestcode = contestcode; // "hi hi" when none is chosen: the window offers the calendar
    openWindow(*this, w);
}

// The report window prints the contest title kept with the station data, so the current title
// is stored before the window opens.
void ContestForm::cmbotchet_Click() {
    tcont->setText(LBLCONTEST->text());
    try {
        store().setStationTitle(tcont->text());
    } catch (const DbError&) {
        // The window still opens; its own title box can be filled in by hand.
    }
    Form* w = subForms_.value("otchet");
    if (!w) {
        const auto currentContest = [this] { return contestcode; };
        subForms_.insert("otchet", w = new OtchetForm(env(), currentContest, this));
    }
    openWindow(*this, w);
}

void ContestForm::mnudxcc_Click() {
    Form* w = subForms_.value("dxcc1");
    if (!w) subForms_.insert("dxcc1", w = new Dxcc1Form(env(), this));
    openWindow(*this, w);
}

void ContestForm::mnufind_Click() {
    Form* w = subForms_.value("chooser");
    if (!w) {
        const auto choose = [this](const QString& item) { fire(item + QStringLiteral("_Click")); };
        subForms_.insert("chooser", w = new ChooserForm(env(), choose, this));
    }
    openWindow(*this, w);
}

void ContestForm::mnurusdx_Click() {
    Form* w = subForms_.value("rusdx");
    if (!w) subForms_.insert("rusdx", w = new RusdxForm(env(), this));
    openWindow(*this, w);
}

} // namespace hfc
