#include "data/rates.h"

#include "text/dates.h"

#include <QTime>
#include <algorithm>

namespace hfc {

int rateLastHour(const QList<QDateTime>& newestFirst, const QDateTime& now) {
    const QDateTime from = now.addSecs(-3600);
    int n = 0;
    for (const QDateTime& t : newestFirst) {
        if (!t.isValid()) continue;
        // A QSO stamped a little after now (a clock mended by hand) still counts as this hour's.
        if (t > from) ++n;
    }
    return n;
}

int rateLastTen(const QList<QDateTime>& newestFirst, const QDateTime& now) {
    QList<QDateTime> valid;
    for (const QDateTime& t : newestFirst)
        if (t.isValid() && valid.size() < 10) valid << t;
    if (valid.isEmpty()) return 0;
    // Times are kept to the minute: the span is at least one, so ten QSOs in one minute read
    // as 600 an hour, not as a division by zero.
    const qint64 minutes = std::max<qint64>(1, (valid.last().secsTo(now) + 59) / 60);
    return int(valid.size() * 60 / minutes);
}

QDateTime qsoTime(const QString& ddate, const QString& ttime) {
    const QDate d = dateFromDdate(ddate);
    QTime t = QTime::fromString(ttime.left(5), QStringLiteral("hh:mm"));
    if (!d.isValid() || !t.isValid()) return {};
    return QDateTime(d, t, Qt::UTC);
}

} // namespace hfc
