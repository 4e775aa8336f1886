#include "forms/contest/contestform.h"

namespace hfc {

void ContestForm::registerQtc() {}

void ContestForm::txtqtcnr_KeyPress(Event&) {}
void ContestForm::txtqtc_KeyPress(Event&) {}
void ContestForm::txtqtc_KeyUp(Event&) {}
void ContestForm::cmbqtc1_Click() {}
void ContestForm::mnuQTC_Click() {}
void ContestForm::qtcfill() {}
void ContestForm::qtcreset() {}
void ContestForm::qtcrefresh() {}

} // namespace hfc
