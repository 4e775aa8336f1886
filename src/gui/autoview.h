#pragma once
// A window for a form model laid out from its controls in creation order: every control gets
// the widget of its kind, text boxes with their names as captions. Used for the smaller windows.
#include <QWidget>

namespace hfc {

class Form;
class Binder;

class AutoView : public QWidget {
    Q_OBJECT
  public:
    AutoView(Form* form, QWidget* parent = nullptr);
    Binder* binder() const { return binder_; }

  private:
    Form* form_;
    Binder* binder_;
};

} // namespace hfc
