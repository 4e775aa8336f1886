#include "text/dates.h"

#include <QStringList>

namespace hfc {

QDate dateFromDdate(const QString& ddate) {
    const QStringList parts = ddate.trimmed().split(QLatin1Char('.'));
    if (parts.size() != 3) return {};
    bool okD = false, okM = false, okY = false;
    const int d = parts[0].toInt(&okD);
    const int m = parts[1].toInt(&okM);
    int y = parts[2].toInt(&okY);
    if (!okD || !okM || !okY) return {};
    if (parts[2].size() <= 2) y += (y < 30) ? 2000 : 1900;
    return QDate(y, m, d);
}

QString ddateSortKey(const QString& ddate) {
    const QDate d = dateFromDdate(ddate);
    return d.isValid() ? d.toString(QStringLiteral("yyyy-MM-dd")) : QStringLiteral("~") + ddate;
}

QString formatDdate(const QString& ddate, const QString& format) {
    const QDate d = dateFromDdate(ddate);
    return d.isValid() ? d.toString(format) : ddate;
}

QString formatTtimeHHMM(const QString& ttime) {
    const QStringList parts = ttime.trimmed().split(QLatin1Char(':'));
    if (parts.size() < 2) return ttime;
    bool okH = false, okM = false;
    const int h = parts[0].toInt(&okH);
    const int m = parts[1].toInt(&okM);
    if (!okH || !okM || h < 0 || h > 23 || m < 0 || m > 59) return ttime;
    return QStringLiteral("%1%2").arg(h, 2, 10, QLatin1Char('0')).arg(m, 2, 10, QLatin1Char('0'));
}

} // namespace hfc
