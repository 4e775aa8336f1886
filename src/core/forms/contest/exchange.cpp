#include "forms/contest/contestform.h"

namespace hfc {

void ContestForm::registerExchange() {}

void ContestForm::wwodrstr() {}
void ContestForm::txtrstr_KeyPress(Event&) {}
void ContestForm::txtrstr_GotFocus() {}
void ContestForm::lblrstr_KeyPress(Event&) {}

} // namespace hfc
