#include "forms/contest/contestform.h"

namespace hfc {

void ContestForm::registerMultipliers() {}

void ContestForm::multcheck() {}
void ContestForm::pscheck() {}
void ContestForm::mnumdxcc_Click() {}
void ContestForm::mnumzone_Click() {}
void ContestForm::multwid_Click() {}
void ContestForm::fillList1() {}

} // namespace hfc
