#include "forms/contest/contestform.h"

namespace hfc {

void ContestForm::registerKeys() {}

void ContestForm::Form_KeyDown(Event&) {}
void ContestForm::lblNul_Click() {}
void ContestForm::MNUCW_Click() {}
void ContestForm::Option1_Click(int) {}
void ContestForm::HScroll1_Change() {}
void ContestForm::cwsend() {}
void ContestForm::cwkey() {}
Keyer* ContestForm::keyer() {
    return nullptr;
}

ContestForm::~ContestForm() = default;

} // namespace hfc
