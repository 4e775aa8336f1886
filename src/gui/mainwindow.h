#pragma once
// The main logging window: lays out the widgets of the CONTEST model. Everything it shows comes
// from the model; everything the operator does goes into it.
#include <QHash>
#include <QList>
#include <QMainWindow>

class QMenu;

namespace hfc {

class ContestForm;
class Binder;
class Form;
class PanelDock;

class MainWindow : public QMainWindow {
    Q_OBJECT
  public:
    explicit MainWindow(ContestForm* form, QWidget* parent = nullptr);
    Binder* binder() const { return binder_; }
    // Where the operator dragged the panels: kept between runs by the caller.
    QByteArray saveLayout() const;
    bool restoreLayout(const QByteArray& state); // false (nothing changed) for a foreign state

  protected:
    void closeEvent(QCloseEvent* e) override;

  private:
    static constexpr int kLayoutVersion = 1;

    void buildMenus();
    void buildPanels();
    void keepKeyboardWithModel();
    QWidget* buildEntryLine();
    QWidget* buildScorePanel();
    QWidget* buildMultiplierWindow();
    QWidget* buildKeyerPanel();
    QWidget* buildQtcFrame();
    QWidget* buildClusterPanel();
    QWidget* buildStationPanel();
    void openSubWindow(Form* child);

    ContestForm* form_;
    Binder* binder_;
    QHash<Form*, QWidget*> subWindows_;
    QMenu* contestMenu_ = nullptr;
    QList<PanelDock*> docks_;
};

} // namespace hfc
