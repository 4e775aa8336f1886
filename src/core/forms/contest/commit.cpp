#include "forms/contest/contestform.h"

namespace hfc {

void ContestForm::registerCommit() {}

void ContestForm::wwodadd() {}
void ContestForm::cmbAdd_Click() {}
void ContestForm::refreshLogGrid() {}
void ContestForm::DBGrid3_Edit(int, const QString&, const QString&) {}

} // namespace hfc
