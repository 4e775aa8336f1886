#pragma once
// The window of the log check ("Сервис" → "Проверка"): what the check found, to read.
#include "forms/form.h"

namespace hfc {

class ProwForm : public Form {
    Q_OBJECT
  public:
    explicit ProwForm(const Env& env, QObject* parent = nullptr);
    Control *txtprow, *cmbexit;
};

} // namespace hfc
