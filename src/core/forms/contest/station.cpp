// The station's shared log: the link to the other computers (started with the window when the
// settings name a broker), others' changes brought into the totals and grids, the log grid's
// computer column, deleting a QSO from the grid, and the station panel.
#include "data/databases.h"
#include "data/schema.h"
#include "forms/contest/contestform.h"
#include "station/multiop.h"
#include "station/settings.h"

#include <QTimer>
#include <QtDebug>

namespace hfc {

void ContestForm::registerStation() {
    // call DBGrid3_Delete ROW: the grid's row (from 0) leaves the log, on every computer.
    on("DBGrid3_Delete", [this](Event& e) {
        if (!e.args.isEmpty()) DBGrid3_Delete(e.args[0].toInt());
    });
    proc("stationRefresh", [this] { stationRefresh(); });
}

void ContestForm::startMultiOp() {
    const StationSettings* s = env().settings;
    if (!s || !MultiOp::configured(*s) || multiop_) return;
    const QString problem = MultiOp::settingsProblem(*s);
    if (!problem.isEmpty()) {
        // The log works alone; the panel says why it is not shared.
        lblstation->setText(QStringLiteral("Общий журнал выключен: ") + problem);
        qWarning("multiop: %s", qPrintable(problem));
        return;
    }
    multiop_ = std::make_unique<MultiOp>(store(), *s);
    connect(multiop_.get(), &MultiOp::logChanged, this,
            [this](const QStringList& bands) { sharedLogChanged(bands); });
    connect(multiop_.get(), &MultiOp::bookkeepingWritten, this, [this] { tally().ownWrites({}); });
    connect(multiop_.get(), &MultiOp::peersChanged, this, [this] { stationRefresh(); });
    connect(multiop_.get(), &MultiOp::connectedChanged, this, [this] { stationRefresh(); });
    // A guessed number is replaced by a reserved one as soon as the reserve arrives, unless a
    // QSO is being typed (its number may already have been sent).
    connect(multiop_.get(), &MultiOp::serialsReserved, this, [this] {
        if (serialUnreserved && txtcall->text().isEmpty()) nextserial();
        stationRefresh();
    });
    QStringList cols = DBGrid3->columns();
    if (!cols.contains(QStringLiteral("Компьютер"))) { // started again after a restore
        cols << QStringLiteral("Компьютер");
        DBGrid3->setColumns(cols);
    }
    multiop_->start();
    frstation->setVisible(true);
    stationRefresh();
}

bool ContestForm::stopMultiOp() {
    const bool running = multiop_ != nullptr;
    multiop_.reset();
    return running;
}

void ContestForm::sharedLogChanged(const QStringList& bands) {
    tally().ownWrites(bands);
    // The others' QSOs arrive many a second at a busy station. Dupes and the partial list read
    // the log at every key anyway; the totals, the grid and the panel are redrawn once for a
    // burst, and not while this operator is typing a call (up to 5 s), so that no key waits
    // behind a recount.
    sharedPending_ = true;
    if (!sharedTimer_) {
        sharedTimer_ = new QTimer(this);
        sharedTimer_->setSingleShot(true);
        connect(sharedTimer_, &QTimer::timeout, this, [this] { showSharedLogChange(); });
    }
    if (!sharedTimer_->isActive()) sharedTimer_->start(250);
}

void ContestForm::showSharedLogChange() {
    if (!sharedPending_) return;
    if (!txtcall->text().isEmpty() && ++sharedDeferrals_ < 20) {
        sharedTimer_->start(250);
        return;
    }
    sharedDeferrals_ = 0;
    sharedPending_ = false;
    recount();
    if (grid3contest == contestcode) refreshLogGrid();
    if (List1->visible()) fillList1();
    stationRefresh();
}

QString ContestForm::originOf(qint64 rowid) {
    if (!multiop_) return {};
    const QString origin = multiop_->store().originOf(rowid);
    // A row not yet taken up by the link is this computer's own.
    return origin.isEmpty() ? multiop_->node() : origin;
}

// With the link each transmitter numbers its own QSOs, as the multi-transmitter categories
// ask, unless the contest wants one sequence for the station: this counts the others' QSOs.
qint64 ContestForm::othersQsos() {
    if (!multiop_) return 0;
    return store().othersQsos(multiop_->node(), contestcode);
}

qint64 ContestForm::lastSerial(qint64 stationQsos) {
    serialUnreserved = false;
    if (!multiop_) return stationQsos;
    const qint64 own = stationQsos - othersQsos();
    if (contestDef().serial != contests::SerialScope::Station) return own;
    multiop_->reserveSerials(own);
    if (const std::optional<qint64> next = multiop_->stationSerial(own)) return *next - 1;
    // No reserved number (a computer that has not reached the broker yet, or a partition longer
    // than the reserve): the station's count is the best guess, and the panel says so.
    serialUnreserved = true;
    return stationQsos;
}

void ContestForm::DBGrid3_Delete(int row) {
    if (row < 0 || size_t(row) >= grid3rowids.size()) return;
    const qint64 rowid = grid3rowids[size_t(row)];
    const QString band = store().bandOf(rowid);
    store().remove(rowid);
    tally().touched({band});
    refreshLogGrid();
    recount();
}

// The Delete key on the log grid: the view tells which row is current ("row"); a key pressed by
// mistake in a running contest must not cost a QSO, so it asks first.
void ContestForm::DBGrid3_DeleteKey() {
    bool ok = false;
    const int row = DBGrid3->extra(QStringLiteral("row")).toInt(&ok);
    if (!ok || row < 0 || size_t(row) >= grid3rowids.size()) return;
    const QStringList qso =
        store().fields(grid3rowids[size_t(row)],
                       {QStringLiteral("ccall"), QStringLiteral("bband"), QStringLiteral("ttime")});
    if (qso.isEmpty()) return;
    if (msgbox(QStringLiteral("Удалить QSO с %1 (%2, %3) из журнала?").arg(qso[0], qso[1], qso[2]),
               QStringLiteral("Удаление QSO"), Ui::Buttons::YesNo) != Ui::Answer::Yes)
        return;
    DBGrid3_Delete(row);
}

void ContestForm::stationRefresh() {
    if (!multiop_) return;
    multiop::NodeStatus me;
    me.band = curband;
    me.mode = curmode;
    me.freq = qsoFreq(); // the radio's, as shown beside the band; empty without one
    me.op = owncall;
    // Read back from the end of the table: the newest row is nearly always the contest's.
    const Rows last = store().lastCallAndTime(contestcode);
    if (!last.empty()) {
        me.lastCall = last[0][0];
        me.lastTime = last[0][1];
    }
    multiop_->setStatus(me);

    QStringList lines;
    QString holder;
    QStringList names = multiop_->peers().keys();
    names.sort();
    for (const QString& n : names) {
        const multiop::NodeStatus& p = multiop_->peers()[n];
        const QString freq = p.freq.isEmpty() ? QString() : p.freq + QStringLiteral(" кГц");
        lines << QStringLiteral("%1 %2 %3 %4 %5 %6 %7 %8")
                     .arg(p.node, p.online ? QStringLiteral("в сети") : QStringLiteral("нет связи"),
                          p.band, p.mode, freq, p.op, p.lastCall, p.lastTime)
                     .simplified();
        if (p.online && !curband.isEmpty() && p.band == curband) holder = p.node;
    }
    lststation->setItems(lines);
    QString state = multiop_->connected() ? QStringLiteral("Брокер: связь есть")
                                          : QStringLiteral("Брокер: нет связи");
    if (serialUnreserved)
        state += QStringLiteral("; номер %1 не зарезервирован — может совпасть с номером другого "
                                "компьютера")
                     .arg(txtrsts->text());
    if (!holder.isEmpty())
        state = QStringLiteral("Диапазон %1 занят компьютером %2").arg(curband, holder);
    lblstation->setText(state);
    lblstation->setBackcolor(holder.isEmpty() ? QString() : QStringLiteral("#ff0000"));
}

} // namespace hfc
