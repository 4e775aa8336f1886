#pragma once
// Dialogs of the real program: Qt message, input and file dialogs with Russian buttons.
#include "forms/ui.h"

class QWidget;

namespace hfc {

class QtUi : public Ui {
  public:
    explicit QtUi(QWidget* parent = nullptr) : parent_(parent) {}
    void setParent(QWidget* p) { parent_ = p; }
    Answer msgbox(const QString& text, const QString& title, Buttons buttons) override;
    std::optional<QString> inputbox(const QString& prompt, const QString& title) override;
    QString openFile(const QString& filter) override;

  private:
    // The window the operator was typing in: the dialog sits over it and gives the keyboard
    // back to it when it closes.
    QWidget* owner() const;
    static void giveBack(QWidget* owner);

    QWidget* parent_;
};

} // namespace hfc
