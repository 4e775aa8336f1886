#include "reports/logcheck.h"

#include <QHash>

namespace hfc {

QStringList repeatedQsos(const QList<LogRow>& rows) {
    QStringList out;
    QHash<QString, const LogRow*> first; // call, band and mode → the first QSO
    for (const LogRow& r : rows) {
        if (r.ccall.isEmpty() || r.ccall == QLatin1String("\"")) continue; // a placeholder
        // The sent report ("599" or "59") tells the mode the QSO was made in.
        const QString key = r.ccall + QLatin1Char('|') + r.bband + QLatin1Char('|') + r.rsts;
        const auto it = first.constFind(key);
        if (it == first.constEnd()) {
            first.insert(key, &r);
            continue;
        }
        const bool marked = r.ps1 == QLatin1String("DUPE");
        out << QStringLiteral("%1 %2 %3 %4: повтор QSO в %5%6")
                   .arg(r.ddate, r.ttime, r.ccall, r.bband, (*it)->ttime,
                        marked ? QStringLiteral(" (отмечен DUPE, 0 очков)")
                               : QStringLiteral(" — не отмечен DUPE"));
    }
    return out;
}

} // namespace hfc
