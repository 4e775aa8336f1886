#pragma once
// The report window: station data, the band table with totals and score, the output folder and
// the file buttons.
#include <QList>
#include <QWidget>

namespace hfc {

class Form;
class Binder;

class OtchetView : public QWidget {
    Q_OBJECT
  public:
    OtchetView(Form* form, QWidget* parent = nullptr);

  protected:
    void changeEvent(QEvent* e) override;
    bool focusNextPrevChild(bool next) override;
    void showEvent(QShowEvent* e) override;

  private:
    QWidget* buildStandardExports();
    QWidget* buildRatePage();

    Form* form_;
    Binder* binder_;
    QList<QWidget*> tabChain_;
    bool justOpened_ = false;
};

} // namespace hfc
