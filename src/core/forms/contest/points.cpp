#include "forms/contest/contestform.h"

namespace hfc {

void ContestForm::registerPoints() {}

void ContestForm::qsopoints() {}

} // namespace hfc
