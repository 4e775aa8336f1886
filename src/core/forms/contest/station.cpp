// The station's shared log: the link to the other computers (started with the window when the
// settings name a broker), others' changes brought into the totals and grids, the log grid's
// computer column, deleting a QSO from the grid, and the station panel.
#include "data/databases.h"
#include "data/schema.h"
#include "forms/contest/contestform.h"
#include "station/multiop.h"
#include "station/settings.h"

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
    multiop_ = std::make_unique<MultiOp>(logDb(), *s);
    connect(multiop_.get(), &MultiOp::logChanged, this,
            [this](const QStringList& bands) { sharedLogChanged(bands); });
    connect(multiop_.get(), &MultiOp::bookkeepingWritten, this, [this] { tally().ownWrites({}); });
    connect(multiop_.get(), &MultiOp::peersChanged, this, [this] { stationRefresh(); });
    connect(multiop_.get(), &MultiOp::connectedChanged, this, [this] { stationRefresh(); });
    QStringList cols = DBGrid3->columns();
    cols << QStringLiteral("Компьютер");
    DBGrid3->setColumns(cols);
    multiop_->start();
    frstation->setVisible(true);
    stationRefresh();
}

void ContestForm::sharedLogChanged(const QStringList& bands) {
    tally().ownWrites(bands);
    recount();
    if (grid3contest == contestcode) refreshLogGrid();
    if (List1->visible()) fillList1();
    stationRefresh();
}

QString ContestForm::originOf(qint64 rowid) {
    if (!multiop_) return {};
    const QString origin =
        logDb().scalar(QStringLiteral("SELECT origin FROM mqqso WHERE qrowid = ?1 AND del = '0'"),
                       {QString::number(rowid)});
    // A row not yet taken up by the link is this computer's own.
    return origin.isEmpty() ? multiop_->node() : origin;
}

// With the link each transmitter numbers its own QSOs, as the multi-transmitter categories
// ask: the serial counts the QSOs this computer logged, not the station's.
qint64 ContestForm::othersQsos() {
    if (!multiop_) return 0;
    return store().othersQsos(multiop_->node(), contestcode);
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

void ContestForm::stationRefresh() {
    if (!multiop_) return;
    multiop::NodeStatus me;
    me.band = curband;
    me.mode = cmbmod->text();
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
        lines << QStringLiteral("%1 %2 %3 %4 %5 %6 %7")
                     .arg(p.node, p.online ? QStringLiteral("в сети") : QStringLiteral("нет связи"),
                          p.band, p.mode, p.freq, p.op, p.lastCall)
                     .simplified();
        if (p.online && !curband.isEmpty() && p.band == curband) holder = p.node;
    }
    lststation->setItems(lines);
    QString state = multiop_->connected() ? QStringLiteral("Брокер: связь есть")
                                          : QStringLiteral("Брокер: нет связи");
    if (!holder.isEmpty())
        state = QStringLiteral("Диапазон %1 занят компьютером %2").arg(curband, holder);
    lblstation->setText(state);
    lblstation->setBackcolor(holder.isEmpty() ? QString() : QStringLiteral("#ff0000"));
}

} // namespace hfc
