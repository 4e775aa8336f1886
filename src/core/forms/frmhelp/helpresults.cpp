// Rules text and results archive of the help window, all in tblhelp: rules rows carry TXTHELP,
// results rows carry rezgod, rezmod and rezul.
//
// Contest codes are compared without regard to case: the calendar's "ha" and "es" must find the
// rules rows stored as "HA" and "ES", and the year and mode columns follow the same rule.
#include "data/databases.h"
#include "forms/frmhelp/frmhelpform.h"

namespace hfc {

void FrmHelpForm::registerResults() {
    proc("wwod1", [this] { wwod1(); });
    proc("WWOD", [this] { WWOD(); });
    proc("Option1_Click", [this] { Option1_Click(); });
    proc("Option2_Click", [this] { Option2_Click(); });
    proc("DBCombo1_Click", [this] { DBCombo1_Click(); });
    proc("mnusave_Click", [this] { mnusave_Click(); });
    proc("mnunew_Click", [this] { mnunew_Click(); });
}

void FrmHelpForm::wwod1() {
    const Rows rules = env().db->help.query(
        QStringLiteral("SELECT TXTHELP, CONTEST FROM tblhelp "
                       "WHERE CONTEST = ?1 COLLATE NOCASE AND length(TXTHELP) > 0"),
        {helpcode});
    Text1->setText(rules.empty() ? QString() : rules[0][0]);
    txtcontest->setText(rules.empty() ? QString() : rules[0][1]);
    loadYears();
    WWOD();
}

void FrmHelpForm::loadYears() {
    DBCombo1->setItems(env().db->help.column(
        QStringLiteral("SELECT DISTINCT rezgod FROM tblhelp WHERE length(rezgod) > 0 "
                       "AND CONTEST = ?1 COLLATE NOCASE AND length(rezul) > 0 "
                       "AND rezmod = ?2 COLLATE NOCASE ORDER BY rezgod"),
        {helpcode, helpmode}));
}

void FrmHelpForm::loadResultsRow(const QString& year) {
    const Rows row = env().db->help.query(
        QStringLiteral("SELECT rowid, CONTEST, rezgod, rezmod, rezul, rezfile FROM tblhelp "
                       "WHERE CONTEST = ?1 COLLATE NOCASE AND rezgod = ?2 COLLATE NOCASE "
                       "AND rezmod = ?3 COLLATE NOCASE ORDER BY rowid LIMIT 1"),
        {helpcode, year, helpmode});
    const QStringList r = row.empty() ? QStringList(6) : row[0];
    resultsRowId_ = row.empty() ? -1 : r[0].toLongLong();
    txtcont1->setText(r[1]);
    txtgod1->setText(r[2]);
    TXTMOD1->setText(r[3]);
    TXTREZUL1->setText(r[4]);
    txtrez1->setText(r[5]);
}

void FrmHelpForm::WWOD() {
    loadResultsRow(DBCombo1->text());
    txtrez->setText(TXTREZUL1->text());
}

void FrmHelpForm::Option1_Click() {
    Option1->setValue(1);
    Option2->setValue(0);
    helpmode = QStringLiteral("CW");
    wwod1();
    setFocus(txtrez);
}

void FrmHelpForm::Option2_Click() {
    Option1->setValue(0);
    Option2->setValue(1);
    helpmode = QStringLiteral("SSB");
    wwod1();
    setFocus(txtrez);
}

void FrmHelpForm::DBCombo1_Click() {
    WWOD();
}

void FrmHelpForm::mnusave_Click() {
    // The year is taken as typed; a cancelled box gives an empty year.
    helpgod = inputbox(QStringLiteral("Введите год "), QStringLiteral("Ввод года"));
    if (txtrez->text().isEmpty()) {
        msgbox(QStringLiteral("Внесите результаты "), QStringLiteral(" Ошибка"));
    } else {
        loadResultsRow(helpgod);
        Db& db = env().db->help;
        if (!TXTREZUL1->text().isEmpty()) {
            if (msgbox(QStringLiteral("Результаты уже внесены. Изменить ?"),
                       QStringLiteral(" Ошибка"), Ui::Buttons::OkCancel) == Ui::Answer::Ok) {
                TXTREZUL1->setText(txtrez->text());
                db.run(QStringLiteral("UPDATE tblhelp SET rezul = ?1 WHERE rowid = ?2"),
                       {TXTREZUL1->text(), QString::number(resultsRowId_)});
            }
        } else {
            txtcont1->setText(helpcode);
            txtgod1->setText(helpgod);
            TXTMOD1->setText(helpmode);
            TXTREZUL1->setText(txtrez->text());
            db.run(QStringLiteral("INSERT INTO tblhelp (CONTEST, rezgod, rezmod, rezul) "
                                  "VALUES (?1, ?2, ?3, ?4)"),
                   {txtcont1->text(), txtgod1->text(), TXTMOD1->text(), TXTREZUL1->text()});
        }
    }
    loadYears();
    WWOD();
}

void FrmHelpForm::mnunew_Click() {
    txtrez->setText({});
    setFocus(txtrez);
}

} // namespace hfc
