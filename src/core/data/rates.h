#pragma once
// QSO rates as a contester reads them, from the times of the log's QSOs: what the last hour
// brought, and the pace of the last ten.
#include <QDateTime>
#include <QList>

namespace hfc {

// QSOs logged in the 60 minutes up to now (times newest first, as the log gives them back).
int rateLastHour(const QList<QDateTime>& newestFirst, const QDateTime& now);

// The hourly rate of the last ten QSOs: ten QSOs over the minutes from the tenth-last to now.
// Measured to now, so a run that has stopped shows its rate falling. 0 with no QSO.
int rateLastTen(const QList<QDateTime>& newestFirst, const QDateTime& now);

// The stored "dd.mm.yy" and "hh:mm" of a QSO as a time; invalid for text that is not one.
QDateTime qsoTime(const QString& ddate, const QString& ttime);

} // namespace hfc
