// After a contest: transfer of the log into the station log, clearing of the contest database
// (always after a dated backup), and the Windows-to-DOS code-page conversion of a text file.
#include "data/backup.h"
#include "data/databases.h"
#include "data/oemfile.h"
#include "data/restore.h"
#include "entry/entrysession.h"
#include "forms/clock.h"
#include "forms/contest/contestform.h"
#include "forms/contest/entrymark.h"
#include "text/codepage.h"

#include <QScopeGuard>

namespace hfc {

void ContestForm::registerMaintenance() {
    proc("cmbvur_Click", [this] { cmbvur_Click(); });
    proc("mnudelet_Click", [this] { mnudelet_Click(); });
    proc("mnuwindos_Click", [this] { mnuwindos_Click(); });
    proc("mnurestore_Click", [this] { mnurestore_Click(); });
    proc("perewod", [this] { perewod(); });
    proc("ANSI2OEM", [this] { ANSI2OEM(); });
}

void ContestForm::cmbvur_Click() {
    if (msgbox(QStringLiteral("Перенести данные в Журнал ?"), QStringLiteral("Сохранение данных"),
               Ui::Buttons::YesNo) == Ui::Answer::Yes &&
        !transferLog())
        return;
    // Whatever the answer: offer the clearing, empty the QTC table, start the entry afresh.
    if (!clearLog()) return;
    mnuQTC_Click();
    showMark(*this, QsoDraft::Mark::None);
    recount();
    nextserial();
    showLogAsItIs();
}

bool ContestForm::transferLog() {
    Databases& dbs = *env().db;
    const QString path = dbs.filePath(QStringLiteral("dbiaru.sqlite"));
    const auto fail = [&](const QString& why) {
        msgbox(why + QStringLiteral("\nДанные не перенесены, база соревнований не изменена."),
               QStringLiteral("Ошибка"));
        return false;
    };
    // The file may have been removed or replaced while the program runs; its open handle would
    // still write into the removed file.
    if (!dbs.stillInPlace(dbs.iaru))
        return fail(QStringLiteral("Файл журнала станции «%1» удалён или заменён после запуска "
                                   "программы; перезапустите программу.")
                        .arg(path));
    if (!dbs.iaru.exists(QStringLiteral("SELECT 1 FROM sqlite_master WHERE type = 'table' "
                                        "AND name = 'tbllog1' COLLATE NOCASE")))
        return fail(QStringLiteral("В журнале станции «%1» нет таблицы tbllog1.").arg(path));
    // Every contest's rows, ten columns of each; no check for rows transferred before.
    const Rows rows = store().iaruRows();
    try {
        dbs.iaru.begin();
        for (const QStringList& r : rows)
            dbs.iaru.run(QStringLiteral("INSERT INTO tbllog1 (ccall, ddate, ttime, bband, rstr, "
                                        "rsts, contr, QTH, PRF, ps1) "
                                        "VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10)"),
                         r);
        dbs.iaru.commit();
    } catch (const DbError& e) {
        dbs.iaru.rollback();
        return fail(
            QStringLiteral("Ошибка записи в журнал станции «%1»: %2.").arg(path, dbErrorReason(e)));
    }
    return true;
}

void ContestForm::mnudelet_Click() {
    if (clearLog()) showLogAsItIs();
}

// After rows left the log, nothing on the screen may still show them: the log grid, the
// lookups of the entry line, the totals, the rates and the multiplier window.
void ContestForm::showLogAsItIs() {
    refreshLogGrid();
    recount();
    wwodcall();
    showRates();
    refreshMultWindow();
}

bool ContestForm::clearLog() {
    const bool yes =
        msgbox(QStringLiteral("Очистить Базу соревнований ?"), QStringLiteral("Удаление данных"),
               Ui::Buttons::YesNo) == Ui::Answer::Yes;
    // The QTC table is emptied even on No, so its rows need the backup as much as the log's.
    const bool losesRows = (yes && store().hasRows()) || store().hasQtcRows();
    if (losesRows && !backupLog()) return false;
    logBackedUp_ = true;
    const auto done = qScopeGuard([this] { logBackedUp_ = false; });
    if (yes) store().clear();
    mnuQTC_Click();
    return true;
}

bool ContestForm::backupLog() {
    const QString folder = env().db->filePath(QStringLiteral("backup"));
    QString error;
    if (!backupDatabase(logDb(), folder, QStringLiteral("dbcontest"), env().clock->localNow(),
                        error)
             .isEmpty())
        return true;
    msgbox(QStringLiteral("Не удалось сохранить копию базы соревнований в папку «%1»: %2.\n"
                          "Данные не удалены.")
               .arg(folder, error),
           QStringLiteral("Ошибка"));
    return false;
}

void ContestForm::mnurestore_Click() {
    const QString backup = env().ui->openFile(QStringLiteral("Копии журнала (*.sqlite)|*.sqlite|"));
    if (backup.isEmpty()) return;
    if (msgbox(QStringLiteral("Восстановить журнал из копии «%1» ?\nТекущий журнал будет "
                              "сохранён в папку копий.")
                   .arg(backup),
               QStringLiteral("Восстановление журнала"), Ui::Buttons::YesNo) != Ui::Answer::Yes)
        return;
    Databases& dbs = *env().db;
    QString savedAs, error;
    // A connection left open on the file being replaced could write into the wrong file.
    const bool linked = stopMultiOp();
    const bool restored = dbs.restoreLog(backup, env().clock->localNow(), savedAs, error);
    // The log's connection was reopened: the totals and the grid are read from it anew, and the
    // shared log starts again on the log that is there now.
    store().forgetTally();
    if (linked) startMultiOp();
    refreshLogGrid();
    recount();
    nextserial();
    if (!restored) {
        msgbox(error, QStringLiteral("Ошибка"));
        return;
    }
    msgbox(restoredMessage(backup, savedAs), QStringLiteral("Восстановление журнала"));
}

void ContestForm::mnuwindos_Click() {
    perewod();
}

void ContestForm::perewod() {
    perewodfile = env().ui->openFile(QStringLiteral("Text_Files (*.txt)|*.txt|"));
    if (perewodfile.isEmpty()) return; // cancelled: nothing to convert, no message
    ANSI2OEM();
}

void ContestForm::ANSI2OEM() {
    // A file that could not be converted is left as it was; the operator is told why.
    QString error;
    if (!ansiToOemFile(perewodfile, &error) && !error.isEmpty())
        msgbox(error, QStringLiteral("Ошибка"));
}

} // namespace hfc
