// Committing the entry line to the log, and the log grid.
#include "data/databases.h"
#include "data/schema.h"
#include "forms/clock.h"
#include "forms/contest/contestform.h"

#include <sqlite3.h>

namespace hfc {

namespace {

// The fields behind the log grid's columns, in column order.
const QStringList& grid3Fields() {
    static const QStringList f = {"ccall", "rstr1",  "rstr2", "rsts1", "rsts2", "mult", "ps",
                                  "point", "point2", "bband", "ttime", "ddate", "mode"};
    return f;
}

// Rows changed on the log's connection so far: a change the grid did not make itself (a
// clearing, a transfer, a script's SQL) shows as a difference.
qint64 changesOf(Db& db) {
    return sqlite3_total_changes64(db.handle());
}

const QString& grid3Select() {
    static const QString sql = QStringLiteral("SELECT rowid, ") +
                               grid3Fields().join(QStringLiteral(", ")) +
                               QStringLiteral(" FROM tbllog");
    return sql;
}

} // namespace

void ContestForm::registerCommit() {
    proc("wwodadd", [this] { wwodadd(); });
    proc("cmbAdd_Click", [this] { cmbAdd_Click(); });
    proc("refreshLogGrid", [this] { refreshLogGrid(); });
    // call DBGrid3_Edit ROW COLUMN VALUE: ROW counts from 0, COLUMN is a field name, a caption
    // or a column number; the value is the rest of the line.
    on("DBGrid3_Edit", [this](Event& e) {
        if (e.args.size() < 2) return;
        DBGrid3_Edit(e.args[0].toInt(), e.args[1], e.args.mid(2).join(QLatin1Char(' ')));
    });
    on("DBGrid3_KeyPress", [this](Event& e) { e.keyAscii = QChar(e.keyAscii).toUpper().unicode(); },
       {"KeyAscii"});
    // Esc takes the operator from the log back to the callsign box, where the next QSO starts
    // (and the totals are brought up to date with what was mended).
    on("DBGrid3_KeyDown",
       [this](Event& e) {
           if (e.keyCode == keys::Esc && txtcall->visible() && txtcall->enabled())
               setFocus(txtcall);
       },
       {"KeyCode", "Shift"});
    var("qsorun", qsorun);
}

void ContestForm::cmbAdd_Click() {
    // After a refused write the operator stays where he was, the QSO still in the boxes.
    if (wwodadd()) setFocus(txtcall);
}

bool ContestForm::wwodadd() {
    if (txtcall->text().isEmpty()) return true;

    const QString mode = cmbmod->text();
    QString ps1 = mode;
    // A repeat is logged with no multiplier and no points; the boxes show so once it is stored.
    const bool dupe = txtrepit->visible() && txtrepit->text() == QStringLiteral("Повтор");
    if (dupe) ps1 = QStringLiteral("DUPE");
    const QString none, zero = QStringLiteral("0");
    const QString rst = mode == QLatin1String("SSB") ? QStringLiteral("59") : QStringLiteral("599");

    // One INSERT in autocommit: the row is on disk (WAL, synchronous=FULL) when this returns.
    // Nothing of the entry line or the rate counters changes before it has succeeded: a refused
    // write (a full disk, a read-only or damaged file) leaves the QSO as typed, to log again.
    Db& db = logDb();
    try {
        db.run(QStringLiteral("INSERT INTO tbllog (point, point2, ps2, ccall, ddate, bband, rsts, "
                              "rstr, ps1, ttime, rstr1, rstr2, rsts1, rsts2, mult, ps, contr, "
                              "PRF, freq) VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, "
                              "?12, ?13, ?14, ?15, ?16, ?17, ?18, ?19)"),
               {dupe ? zero : txtpoint->text(), dupe ? zero : txtpoint2->text(), contestcode,
                txtcall->text(), txtdate->text(), curband, rst, rst, ps1, txttime->text().left(5),
                lblrstr->text(), txtrstr->text(), lblrsts->text(), txtrsts->text(),
                dupe ? none : txtmult->text(), dupe ? none : txtmult2->text(), callstrana, callprf,
                qsoFreq()});
    } catch (const DbError& e) {
        msgbox(QStringLiteral("QSO с %1 НЕ записано в журнал: %2.\nСтрока ввода оставлена как "
                              "была; устраните причину и нажмите Enter ещё раз.")
                   .arg(txtcall->text(), dbErrorReason(e)),
               QStringLiteral("Ошибка записи"));
        return false;
    }
    const qint64 rowid = sqlite3_last_insert_rowid(db.handle());
    if (dupe) {
        txtmult->setText(none);
        txtmult2->setText(none);
        txtpoint->setText(zero);
        txtpoint2->setText(zero);
    }
    const QDateTime now = env().clock->localNow();
    if (qsorun == 0) firstqso = now;
    if (firstAfterBandChange) {
        bandstart = now;
        firstAfterBandChange = false;
    }
    lastqso = now;
    for (int b = 0; b < 7; ++b)
        if (cmbband[b]->text() == curband) bandprev = b;
    tally().inserted(rowid);
    ++hourcount;
    appendLogGridRow(rowid);

    const bool newMult = !txtmult->text().isEmpty() || !txtmult2->text().isEmpty();
    if (newMult && multwid->visible()) prefixlist();

    // Reset the entry line for the next QSO.
    txtcall->setText(QString());
    txtrsts->setText(QString());
    txtrstr->setText(QString());
    txtmult->setText(QString());
    txtmult2->setText(QString());
    txtpoint->setText(QString());
    txtpoint2->setText(QString());
    callitu.clear();
    callcq.clear();
    callstrana.clear();
    kodsrr.clear();
    txtstran5->setText(QString());
    ++qsorun;
    txtrepit->setVisible(false);
    if (contestDef().reportTyped) lblrstr->setText(QString());
    DBList1->setItems({});
    DBList1->setText(QString());
    DBGrid1->setRows({});
    timelist.clear();

    if (List1->visible()) fillList1();
    showRates();
    return true;
}

// The log grid keeps only the rowids of the contest's QSOs and reads a row when it is shown, so
// a long contest costs eight bytes a QSO here, not a copy of the log.
void ContestForm::refreshLogGrid() {
    grid3contest = contestcode;
    grid3rowids.clear();
    Stmt& s = logDb().prepared(
        QStringLiteral("SELECT rowid FROM tbllog WHERE ps2 = ?1 ORDER BY rowid"), {contestcode});
    while (s.step()) grid3rowids.push_back(s.text(0).toLongLong());
    s.reset();
    DBGrid3->setRowSource(grid3rowids.size(), [this](size_t i) { return logGridRow(i); });
    grid3changes = changesOf(logDb());
}

QStringList ContestForm::logGridRow(size_t i) {
    if (i < grid3rowids.size()) {
        const Rows r = logDb().query(grid3Select() + QStringLiteral(" WHERE rowid = ?1"),
                                     {QString::number(grid3rowids[i])});
        if (!r.empty()) {
            QStringList fields = r[0].mid(1);
            if (multiop()) fields << originOf(grid3rowids[i]);
            return fields;
        }
    }
    // a row deleted behind the grid shows empty until the grid is rebuilt
    return QStringList(DBGrid3->columns().size(), QString());
}

bool ContestForm::logGridStale() {
    return grid3contest != contestcode || grid3changes != changesOf(logDb());
}

void ContestForm::appendLogGridRow(qint64 rowid) {
    // A grid that shows another contest or missed a change is rebuilt whole; otherwise the new
    // row is added below.
    if (grid3contest != contestcode || grid3changes + 1 != changesOf(logDb())) {
        refreshLogGrid();
        return;
    }
    grid3rowids.push_back(rowid);
    DBGrid3->setSourcedRowCount(grid3rowids.size());
    grid3changes = changesOf(logDb());
}

void ContestForm::DBGrid3_Edit(int row, const QString& column, const QString& value) {
    if (row < 0 || size_t(row) >= grid3rowids.size()) return;
    const QStringList& fields = grid3Fields();
    QString field;
    bool isNumber = false;
    const int at = column.toInt(&isNumber);
    if (isNumber && at >= 0 && at < fields.size()) {
        field = fields[at];
    } else {
        for (int i = 0; i < fields.size() && field.isEmpty(); ++i)
            if (fields[i].compare(column, Qt::CaseInsensitive) == 0 ||
                DBGrid3->columns().value(i) == column)
                field = fields[i];
    }
    if (field.isEmpty()) return;
    const QString upper = value.toUpper();
    const QString rowid = QString::number(grid3rowids[row]);
    QStringList bands{
        logDb().scalar(QStringLiteral("SELECT bband FROM tbllog WHERE rowid = ?1"), {rowid})};
    if (field == QLatin1String("bband")) bands << upper;
    // The field name comes from the fixed list above, never from the caller's text.
    logDb().run(QStringLiteral("UPDATE tbllog SET %1 = ?1 WHERE rowid = ?2").arg(field),
                {upper, rowid});
    tally().touched(bands);
    DBGrid3->sourcedRowsChanged();
    grid3changes = changesOf(logDb());
}

} // namespace hfc
