#pragma once
// The Russian districts look-up window: the rows of tblrus whose prefix begins with the typed
// text, in prefix order. It only reads.
#include "forms/form.h"

namespace hfc {

class RusdxForm : public Form {
    Q_OBJECT
  public:
    explicit RusdxForm(const Env& env, QObject* parent = nullptr);

    Control *lblserch, *txtserch, *DBGrid1, *Command1;
    QString chars; // allowed characters of the search box

    void Form_Load();
    void txtserch_KeyPress(Event& e);
    void txtserch_KeyUp();
    void Command1_Click();
};

} // namespace hfc
