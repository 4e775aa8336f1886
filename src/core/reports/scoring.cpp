#include "reports/scoring.h"

#include <QHash>
#include <cmath>

namespace hfc {

const ReportScoring& reportScoring(const QString& contestcode) {
    if (const contests::ContestDef* c = contests::find(contestcode)) return c->report;
    using R = ReportScoring::Rule;
    // "32" and "45" are not set by any menu entry; their rows are kept so that a log carrying
    // those codes still scores the way it always has.
    static const QHash<QString, ReportScoring> legacy = {
        {QStringLiteral("32"), {10, 1, R::Product, false}},
        {QStringLiteral("45"), {15, 5, R::Product, true}},
    };
    static const ReportScoring general;
    const auto it = legacy.constFind(contestcode);
    return it == legacy.constEnd() ? general : *it;
}

long long claimedScore(const ReportScoring& s, long long firstTotal, long long secondTotal,
                       long long pointTotal) {
    switch (s.rule) {
    case ReportScoring::Rule::Sum:
        return firstTotal + secondTotal + pointTotal;
    case ReportScoring::Rule::PointsOnly:
        return pointTotal;
    case ReportScoring::Rule::Product:
        break;
    }
    return (firstTotal + secondTotal) * pointTotal;
}

QString pointSumText(const QString& sum) {
    if (sum.isEmpty()) return QStringLiteral("0");
    bool ok = false;
    const double v = sum.toDouble(&ok);
    // SQLite sums text that is not a whole number as a real ("0.0" for letters); a whole value
    // is shown without its fraction, anything else as the engine gave it.
    if (ok && v == std::floor(v) && std::fabs(v) < 9e15) return QString::number(qint64(v));
    return sum;
}

} // namespace hfc
