#include "forms/contest/contestform.h"

namespace hfc {

void ContestForm::registerWindows() {}

void ContestForm::mnupol_Click() {}
void ContestForm::cmbotchet_Click() {}
void ContestForm::mnudxcc_Click() {}
void ContestForm::mnurusdx_Click() {}

} // namespace hfc
