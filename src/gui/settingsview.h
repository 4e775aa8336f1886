#pragma once
// The settings window: one group per link, each box with its heading, and the two buttons.
#include <QWidget>

namespace hfc {

class Form;
class Binder;

class SettingsView : public QWidget {
    Q_OBJECT
  public:
    SettingsView(Form* form, QWidget* parent = nullptr);

  private:
    Form* form_;
    Binder* binder_;
};

} // namespace hfc
