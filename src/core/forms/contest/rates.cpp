// The rates beside the totals, from the log: a restart loses nothing of them.
#include "data/rates.h"
#include "data/databases.h"
#include "forms/clock.h"
#include "forms/contest/contestform.h"

namespace hfc {

void ContestForm::registerRates() {
    lblrate60 = add("lblrate60", Control::Kind::Label, "0");
    lblrate60->setTooltip(QStringLiteral("QSO за последние 60 минут"));
    lblrate10 = add("lblrate10", Control::Kind::Label, "0");
    lblrate10->setTooltip(QStringLiteral("Темп последних 10 QSO, QSO/час"));
    lblstatus = add("lblstatus", Control::Kind::Label);
    proc("showRates", [this] { showRates(); });
}

void ContestForm::showRates() {
    // The log's times are those of the entry line's clock, in its time base.
    const QDateTime clock = entryClock();
    const QDateTime now(clock.date(), clock.time(), Qt::UTC);
    QList<QDateTime> times;
    for (const QStringList& r : store().recentTimes(contestcode)) times << qsoTime(r[0], r[1]);
    lblrate60->setText(num(rateLastHour(times, now)));
    lblrate10->setText(num(rateLastTen(times, now)));
    rateminute = clock.toString(QStringLiteral("yyyyMMddhhmm"));
}

void ContestForm::tickRates() {
    const QDateTime clock = entryClock();
    if (clock.toString(QStringLiteral("yyyyMMddhhmm")) != rateminute) showRates();
}

void ContestForm::status(const QString& text) {
    lblstatus->setText(text);
}

} // namespace hfc
