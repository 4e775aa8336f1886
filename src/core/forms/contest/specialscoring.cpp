#include "forms/contest/contestform.h"

namespace hfc {

void ContestForm::registerSpecialScoring() {}

void ContestForm::raemscore() {}
void ContestForm::SAC() {}
void ContestForm::SAC1() {}
void ContestForm::SAC2() {}
void ContestForm::Prowerka() {}
void ContestForm::mnuprow_Click() {}

} // namespace hfc
