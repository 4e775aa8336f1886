#pragma once
// The main logging window: lays out the widgets of the CONTEST model. Everything it shows comes
// from the model; everything the operator does goes into it.
#include <QHash>
#include <QMainWindow>

class QMenu;

namespace hfc {

class ContestForm;
class Binder;
class Form;

class MainWindow : public QMainWindow {
    Q_OBJECT
  public:
    explicit MainWindow(ContestForm* form, QWidget* parent = nullptr);
    Binder* binder() const { return binder_; }

  protected:
    void closeEvent(QCloseEvent* e) override;

  private:
    void buildMenus();
    QWidget* buildEntryLine();
    QWidget* buildScorePanel();
    QWidget* buildMultiplierWindow();
    QWidget* buildKeyerPanel();
    QWidget* buildQtcFrame();
    void openSubWindow(Form* child);

    ContestForm* form_;
    Binder* binder_;
    QHash<Form*, QWidget*> subWindows_;
    QMenu* contestMenu_ = nullptr;
};

} // namespace hfc
