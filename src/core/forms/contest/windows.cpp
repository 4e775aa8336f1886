#include "forms/contest/contestform.h"

#include "forms/dxcc1/dxcc1form.h"
#include "forms/frmhelp/frmhelpform.h"
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
    proc("mnudxcc_Click", [this] { mnudxcc_Click(); });
    proc("mnurusdx_Click", [this] { mnurusdx_Click(); });
}

void ContestForm::mnupol_Click() {
    auto* w = static_cast<FrmHelpForm*>(subForms_.value("frmhelp"));
    if (!w) subForms_.insert("frmhelp", w = new FrmHelpForm(env(), this));
    w->contestcode = contestcode; // "hi hi" when none is chosen: the window offers the calendar
    openWindow(*this, w);
}

void ContestForm::cmbotchet_Click() {}

void ContestForm::mnudxcc_Click() {
    Form* w = subForms_.value("dxcc1");
    if (!w) subForms_.insert("dxcc1", w = new Dxcc1Form(env(), this));
    openWindow(*this, w);
}

void ContestForm::mnurusdx_Click() {
    Form* w = subForms_.value("rusdx");
    if (!w) subForms_.insert("rusdx", w = new RusdxForm(env(), this));
    openWindow(*this, w);
}

} // namespace hfc
