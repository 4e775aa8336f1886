#include "forms/contest/contestform.h"

namespace hfc {

void ContestForm::registerBands() {}

void ContestForm::cmbband_Click(int) {}
void ContestForm::cmbband_GotFocus(int) {}
void ContestForm::cmbband_KeyPress(Event&) {}
void ContestForm::cmbmod_Click() {}
void ContestForm::cmbwsego_Click() {}
void ContestForm::prefixlist() {}

} // namespace hfc
