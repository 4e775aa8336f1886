#include "reports/hourly.h"

#include "data/rates.h"

#include <QMap>

namespace hfc {

const QStringList& hourlyBands() {
    static const QStringList b = {"1,8", "3,5", "7", "14", "21", "28", "sat"};
    return b;
}

QList<HourRow> qsosByHour(const QList<LogRow>& rows) {
    QMap<QDateTime, HourRow> byHour;
    for (const LogRow& r : rows) {
        if (r.ccall.isEmpty() || r.ccall == QLatin1String("\"")) continue;
        const QDateTime t = qsoTime(r.ddate, r.ttime);
        if (!t.isValid()) continue;
        const QDateTime hour(t.date(), QTime(t.time().hour(), 0), Qt::UTC);
        HourRow& h = byHour[hour];
        const int band = int(hourlyBands().indexOf(r.bband));
        if (band >= 0) ++h.perBand[size_t(band)];
        ++h.total;
    }
    QList<HourRow> out;
    const auto add = [&out](const QDateTime& h, HourRow row) {
        row.hour = h.toString(QStringLiteral("dd.MM.yy hh"));
        out << row;
    };
    QDateTime prev;
    for (auto it = byHour.cbegin(); it != byHour.cend(); ++it) {
        // Quiet hours within a day show as gaps; a longer break (two days of one contest, a
        // mistyped date) is not drawn hour by empty hour.
        if (prev.isValid() && prev.secsTo(it.key()) <= 24 * 3600)
            for (QDateTime h = prev.addSecs(3600); h < it.key(); h = h.addSecs(3600))
                add(h, HourRow{});
        add(it.key(), it.value());
        prev = it.key();
    }
    return out;
}

} // namespace hfc
