// The WAE QTC frame: up to ten QTC lines stored as rows of the working table tbllogTemp, which
// also holds the working copy of the contest's log the operator composes QTCs from.
#include "forms/contest/contestform.h"

#include "data/db.h"

namespace hfc {

namespace {
constexpr int kQtcLines = 10;
// A QTC line is kept in the log-record layout: its head in ps2, the rest in contr.
constexpr int kHead = 14;
} // namespace

void ContestForm::registerQtc() {
    on("txtqtcnr_KeyPress", [this](Event& e) { txtqtcnr_KeyPress(e); }, {"KeyAscii"});
    on("txtqtc_KeyPress", [this](Event& e) { txtqtc_KeyPress(e); }, {"Index", "KeyAscii"});
    on("txtqtc_KeyUp", [this](Event& e) { txtqtc_KeyUp(e); }, {"Index", "KeyCode", "Shift"});
    proc("cmbqtc1_Click", [this] { cmbqtc1_Click(); });
    proc("mnuQTC_Click", [this] { mnuQTC_Click(); });
    proc("qtcfill", [this] { qtcfill(); });
    proc("qtcreset", [this] { qtcreset(); });
    proc("qtcrefresh", [this] { qtcrefresh(); });
    proc("openQtc", [this] { openQtc(); });
}

void ContestForm::openQtc() {
    FRQTC->setVisible(true);
    txtqtccall->setText(txtcall->text());
    txtqtctime->setText(txttime->text().left(5));
    txtqtcband->setText(curband);
    setFocus(txtqtcnr);
}

void ContestForm::txtqtcnr_KeyPress(Event& e) {
    if (e.keyAscii == keys::Enter) setFocus(txtqtc[0]);
}

void ContestForm::txtqtc_KeyPress(Event& e) {
    if (e.index < 0 || e.index >= kQtcLines) return;
    e.keyAscii = QChar(e.keyAscii).toUpper().unicode();
    if (e.keyAscii != keys::Enter) return;
    if (e.index < kQtcLines - 1)
        setFocus(txtqtc[e.index + 1]);
    else
        cmbqtc1_Click();
}

void ContestForm::txtqtc_KeyUp(Event& e) {
    if (e.keyCode == keys::Up && e.index >= 1 && e.index <= kQtcLines - 1)
        setFocus(txtqtc[e.index - 1]);
    else if (e.keyCode == keys::Down && e.index >= 0 && e.index < kQtcLines - 1)
        setFocus(txtqtc[e.index + 1]);
}

void ContestForm::cmbqtc1_Click() {
    if (!txtqtc[0]->text().isEmpty()) {
        Db& db = logDb();
        db.begin();
        try {
            // j moves only past filled lines, so a gap ends the QTC: what follows it is not kept.
            int j = 0;
            for (int i = 0; i < kQtcLines; ++i) {
                const QString line = txtqtc[j]->text();
                if (line.isEmpty()) continue;
                db.run(QStringLiteral("INSERT INTO tbllogTemp (rstr1, ccall, ttime, bband, ddate, "
                                      "ps2, contr) VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7)"),
                       {txtqtcnr->text(), txtqtccall->text(), txtqtctime->text(),
                        txtqtcband->text(), txtdate->text(), line.left(kHead),
                        line.size() > kHead ? line.mid(kHead) : QString()});
                ++j;
            }
            db.commit();
        } catch (...) {
            db.rollback();
            throw;
        }
    }
    qtcrefresh();
    FRQTC->setVisible(false);
    for (Control* line : txtqtc) line->setText(QString());
    txtqtccall->setText(QString());
    txtqtctime->setText(QString());
    txtqtcband->setText(QString());
    setFocus(txtrstr);
}

void ContestForm::mnuQTC_Click() {
    // QTC rows are kept nowhere else: back them up unless a clearing just did.
    if (!logBackedUp_ && logDb().exists(QStringLiteral("SELECT 1 FROM tbllogTemp LIMIT 1")) &&
        !backupLog())
        return;
    logDb().exec(QStringLiteral("DELETE FROM tbllogTemp"));
}

void ContestForm::qtcfill() {
    mnuQTC_Click();
    // Not emptied (its backup failed and was reported): adding the copy would mix the two.
    if (logDb().exists(QStringLiteral("SELECT 1 FROM tbllogTemp LIMIT 1"))) return;
    logDb().run(QStringLiteral("INSERT INTO tbllogTemp SELECT * FROM tbllog WHERE ps2 = ?1"),
                {contestcode});
    qtcrefresh();
}

void ContestForm::qtcreset() {
    if (contestDef().qtc) {
        if (msgbox(QStringLiteral("ВЫ СОСТАВИЛИ ОТЧЕТ QTC ?"), QStringLiteral("Удаление данных"),
                   Ui::Buttons::YesNo) != Ui::Answer::Yes)
            return;
        if (msgbox(QStringLiteral("ДАННЫЕ  QTC БУДУТ ПОТЕРЯНЫ. ВЫ ГОТОВЫ К ЭТОМУ ?"),
                   QStringLiteral("ВНИМАНИЕ !!!"), Ui::Buttons::YesNo) != Ui::Answer::Yes)
            return;
    }
    qtcfill();
}

void ContestForm::qtcrefresh() {
    // No control of this window shows the working copy; a view of it reads the table when drawn.
}

} // namespace hfc
