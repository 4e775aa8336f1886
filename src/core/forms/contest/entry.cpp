#include "forms/contest/contestform.h"

namespace hfc {

void ContestForm::registerEntry() {}

void ContestForm::txtcall_KeyPress(Event&) {}
void ContestForm::txtcall_KeyUp(Event&) {}
void ContestForm::txtcall_GotFocus() {}
void ContestForm::WWOD() {}
void ContestForm::wwodcall() {}
void ContestForm::DBList1_Click() {}

} // namespace hfc
