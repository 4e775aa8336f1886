#include "forms/contest/contestform.h"

namespace hfc {

void ContestForm::registerRig() {}

void ContestForm::mnuCAT_Click() {}

} // namespace hfc
