#include "forms/contest/contestform.h"

namespace hfc {

void ContestForm::registerSelection() {}

void ContestForm::selectContest(const QString&) {}
void ContestForm::clearmwid() {}

} // namespace hfc
