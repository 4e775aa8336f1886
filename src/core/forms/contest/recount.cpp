#include "forms/contest/contestform.h"

namespace hfc {

void ContestForm::registerRecount() {}

void ContestForm::nextserial() {}
void ContestForm::recount() {}

} // namespace hfc
