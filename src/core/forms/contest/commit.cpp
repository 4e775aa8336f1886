// Committing the entry line to the log, and the log grid.
#include "data/databases.h"
#include "data/schema.h"
#include "entry/entrysession.h"
#include "forms/clock.h"
#include "forms/contest/contestform.h"
#include "forms/contest/entrymark.h"
#include "log/logcolumns.h"

#include <sqlite3.h>

namespace hfc {

namespace {

// Rows changed on the log's connection so far: a change the grid did not make itself (a
// clearing, a transfer, a script's SQL) shows as a difference.
qint64 changesOf(Db& db) {
    return sqlite3_total_changes64(db.handle());
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
           if (e.keyCode == keys::Delete && e.shift == 0) DBGrid3_DeleteKey();
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

    // What the boxes hold that the session does not compute yet; the mark, points and new
    // multipliers are the session's already.
    QsoDraft& d = session().draft();
    d.call = txtcall->text();
    d.band = curband;
    d.mode = curmode;
    d.date = txtdate->text();
    d.time = txttime->text();
    d.rcvdReport = lblrstr->text();
    d.rcvdExchange = txtrstr->text();
    d.sentReport = lblrsts->text();
    d.sentExchange = txtrsts->text();
    d.freq = qsoFreq();

    // One INSERT in autocommit: the row is on disk (WAL, synchronous=FULL) when this returns.
    // Nothing of the entry line or the rate counters changes before it has succeeded: a refused
    // write (a full disk, a read-only or damaged file) leaves the QSO as typed, to log again.
    qint64 rowid = 0;
    try {
        rowid = session().commit();
    } catch (const DbError& e) {
        msgbox(QStringLiteral("QSO с %1 НЕ записано в журнал: %2.\nСтрока ввода оставлена как "
                              "была; устраните причину и нажмите Enter ещё раз.")
                   .arg(txtcall->text(), dbErrorReason(e)),
               QStringLiteral("Ошибка записи"));
        return false;
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

    // A repeat was stored with no multiplier: the draft says what was stored.
    const bool newMult = !d.mult.isEmpty() || !d.mult2.isEmpty();
    if (newMult && multwid->visible()) prefixlist();

    // Reset the entry line for the next QSO.
    txtcall->setText(QString());
    txtrsts->setText(QString());
    txtrstr->setText(QString());
    txtstran5->setText(QString());
    ++qsorun;
    session().next();
    showScore();
    showMark(*this, QsoDraft::Mark::None);
    if (contestDef().reportTyped) lblrstr->setText(QString());
    DBList1->setItems({});
    DBList1->setText(QString());
    DBGrid1->setRows({});

    if (List1->visible()) fillList1();
    showRates();
    return true;
}

// The log grid keeps only the rowids of the contest's QSOs and reads a row when it is shown, so
// a long contest costs eight bytes a QSO here, not a copy of the log.
void ContestForm::refreshLogGrid() {
    grid3contest = contestcode;
    grid3rowids.clear();
    grid3rowids = store().rowids(contestcode);
    DBGrid3->setRowSource(grid3rowids.size(), [this](size_t i) { return logGridRow(i); });
    grid3changes = changesOf(logDb());
}

QStringList ContestForm::logGridRow(size_t i) {
    if (i < grid3rowids.size()) {
        QStringList fields = store().fields(grid3rowids[i], logGridColumns());
        if (!fields.isEmpty()) {
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
    const QStringList& fields = logGridColumns();
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
    const qint64 rowid = grid3rowids[size_t(row)];
    QStringList bands{store().bandOf(rowid)};
    if (field == QLatin1String("bband")) bands << upper;
    store().setField(rowid, field, upper);
    tally().touched(bands);
    DBGrid3->sourcedRowsChanged();
    grid3changes = changesOf(logDb());
}

} // namespace hfc
