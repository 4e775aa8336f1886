#include "qtui.h"

#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>

namespace hfc {

Ui::Answer QtUi::msgbox(const QString& text, const QString& title, Buttons buttons) {
    QMessageBox box(parent_);
    box.setWindowTitle(title);
    box.setText(text);
    QPushButton *first = nullptr, *second = nullptr;
    switch (buttons) {
    case Buttons::Ok:
        first = box.addButton(QStringLiteral("OK"), QMessageBox::AcceptRole);
        break;
    case Buttons::YesNo:
        first = box.addButton(QStringLiteral("Да"), QMessageBox::YesRole);
        second = box.addButton(QStringLiteral("Нет"), QMessageBox::NoRole);
        break;
    case Buttons::OkCancel:
        first = box.addButton(QStringLiteral("OK"), QMessageBox::AcceptRole);
        second = box.addButton(QStringLiteral("Отмена"), QMessageBox::RejectRole);
        break;
    }
    box.setDefaultButton(first);
    if (second) box.setEscapeButton(second);
    box.exec();
    const bool isFirst = box.clickedButton() == first;
    switch (buttons) {
    case Buttons::Ok:
        return Answer::Ok;
    case Buttons::YesNo:
        return isFirst ? Answer::Yes : Answer::No;
    case Buttons::OkCancel:
        return isFirst ? Answer::Ok : Answer::Cancel;
    }
    return Answer::Cancel;
}

std::optional<QString> QtUi::inputbox(const QString& prompt, const QString& title) {
    QInputDialog dlg(parent_);
    dlg.setWindowTitle(title);
    dlg.setLabelText(prompt);
    dlg.setOkButtonText(QStringLiteral("OK"));
    dlg.setCancelButtonText(QStringLiteral("Отмена"));
    if (dlg.exec() != QDialog::Accepted) return std::nullopt;
    return dlg.textValue();
}

QString QtUi::openFile(const QString& filter) {
    // The filter comes as "Name (*.ext)|*.ext|"; Qt wants "Name (*.ext)".
    const QString qtFilter = filter.section('|', 0, 0);
    return QFileDialog::getOpenFileName(parent_, QStringLiteral("Открыть"), QString(), qtFilter);
}

} // namespace hfc
