#include "forms/contest/contestform.h"

namespace hfc {

void ContestForm::registerMaintenance() {}

void ContestForm::cmbvur_Click() {}
void ContestForm::mnudelet_Click() {}
void ContestForm::mnuwindos_Click() {}
void ContestForm::perewod() {}
void ContestForm::ANSI2OEM() {}

} // namespace hfc
