#pragma once
// A panel of the logging window the operator can drag: by its title bar to another side of the
// window, or off it to float wherever it is dropped (a second screen, say). Whether it is shown
// stays the window model's decision: the dock follows its control's visibility and has no close
// button of its own, so the menu that toggles the panel is the one way to hide it.
#include <QDockWidget>

class QTimer;

namespace hfc {

class Control;

class PanelDock : public QDockWidget {
    Q_OBJECT
  public:
    // `content` is the panel's widget; `control` decides when the dock is shown.
    PanelDock(const QString& objectName, const QString& title, QWidget* content, Control* control,
              QWidget* parent = nullptr);

    // Re-applies the control's visibility: restoring a saved layout shows or hides docks as they
    // were when it was saved, which must not override what the current contest shows.
    void follow();

  signals:
    // The floating panel took the keyboard and the mouse is up again: the drag (or the click
    // that brought it forward) is over.
    void activationSettled();

  protected:
    bool event(QEvent* e) override;

  private:
    Control* control_;
    QTimer* settle_;
};

} // namespace hfc
