#pragma once
// Dialogs answered from a queue, for the script driver and the tests: every dialog shown is
// recorded, and a dialog with no queued answer stops the script.
#include "forms/ui.h"

#include <QQueue>
#include <QStringList>

namespace hfc {

class ScriptedUi : public Ui {
  public:
    Answer msgbox(const QString& text, const QString& title, Buttons buttons) override;
    std::optional<QString> inputbox(const QString& prompt, const QString& title) override;
    QString openFile(const QString& filter) override;

    void queueAnswer(Answer a) { answers_.enqueue(a); }
    void queueInput(std::optional<QString> text) { inputs_.enqueue(text); }
    void queueFile(const QString& path) { files_.enqueue(path); }
    QStringList takeShown(); // one line per dialog, tab-separated

  private:
    QQueue<Answer> answers_;
    QQueue<std::optional<QString>> inputs_;
    QQueue<QString> files_;
    QStringList shown_;
};

} // namespace hfc
