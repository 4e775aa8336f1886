#include "forms/contest/contestform.h"

namespace hfc {

void ContestForm::registerCountry() {}

void ContestForm::STRAN() {}
void ContestForm::RUS() {}
void ContestForm::rusdx() {}
void ContestForm::CQM() {}
void ContestForm::EU13() {}
void ContestForm::eucountry() {}
void ContestForm::callprefix() {}
void ContestForm::resolveOwnCall() {}

} // namespace hfc
