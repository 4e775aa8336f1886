#include "qtui.h"

#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>

namespace hfc {

QWidget* QtUi::owner() const {
    QWidget* active = QApplication::activeWindow();
    return active ? active : parent_;
}

// Without this the keyboard may stay nowhere once the dialog is gone (a desktop without a window
// manager, or one that does not hand the focus back), and the next call typed is lost.
void QtUi::giveBack(QWidget* owner) {
    if (!owner || !owner->isVisible()) return;
    owner->activateWindow();
    owner->raise();
}

Ui::Answer QtUi::msgbox(const QString& text, const QString& title, Buttons buttons) {
    QWidget* back = owner();
    QMessageBox box(back);
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
    giveBack(back);
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
    QWidget* back = owner();
    QInputDialog dlg(back);
    dlg.setWindowTitle(title);
    dlg.setLabelText(prompt);
    dlg.setOkButtonText(QStringLiteral("OK"));
    dlg.setCancelButtonText(QStringLiteral("Отмена"));
    const bool accepted = dlg.exec() == QDialog::Accepted;
    giveBack(back);
    if (!accepted) return std::nullopt;
    return dlg.textValue();
}

QString QtUi::openFile(const QString& filter) {
    // The filter comes as "Name (*.ext)|*.ext|"; Qt wants "Name (*.ext)".
    const QString qtFilter = filter.section('|', 0, 0);
    QWidget* back = owner();
    const QString path =
        QFileDialog::getOpenFileName(back, QStringLiteral("Открыть"), QString(), qtFilter);
    giveBack(back);
    return path;
}

} // namespace hfc
