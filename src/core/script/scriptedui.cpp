#include "script/scriptedui.h"

namespace hfc {

Ui::Answer ScriptedUi::msgbox(const QString& text, const QString& title, Buttons buttons) {
    shown_ << QStringList{"msgbox", text, title, buttonsName(buttons)}.join('\t');
    if (answers_.isEmpty())
        throw ScriptAbort(("no answer queued for message box: " + text).toStdString());
    return answers_.dequeue();
}

std::optional<QString> ScriptedUi::inputbox(const QString& prompt, const QString& title) {
    shown_ << QStringList{"inputbox", prompt, title}.join('\t');
    if (inputs_.isEmpty())
        throw ScriptAbort(("no answer queued for input box: " + prompt).toStdString());
    return inputs_.dequeue();
}

QString ScriptedUi::openFile(const QString& filter) {
    shown_ << QStringList{"open_file", filter}.join('\t');
    if (files_.isEmpty())
        throw ScriptAbort(("no answer queued for file dialog: " + filter).toStdString());
    return files_.dequeue();
}

QStringList ScriptedUi::takeShown() {
    QStringList out;
    out.swap(shown_);
    return out;
}

} // namespace hfc
