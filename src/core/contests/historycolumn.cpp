#include "contests/historycolumn.h"

#include "contests/contestdef.h"

#include <algorithm>

namespace hfc::contests {

// The contests whose exchange follows from the call (a zone, an oblast) say so in their
// definition; their history column is the one that holds that value.
QString historyColumn(const QString& code) {
    switch (def(code).fromCall) {
    case ExchangeFromCall::Oblast:
        return QStringLiteral("Loc1");
    case ExchangeFromCall::CqZone:
        return QStringLiteral("CQZone");
    case ExchangeFromCall::ItuZone:
        return QStringLiteral("ITUZone");
    case ExchangeFromCall::None:
        break;
    }
    return QStringLiteral("Exch1");
}

bool historyValueFits(const QString& column, const QString& value) {
    const auto all = [&](auto pred) {
        return std::all_of(value.begin(), value.end(), [&](QChar c) { return pred(c); });
    };
    const auto digit = [](QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); };
    const auto letter = [](QChar c) { return c >= QLatin1Char('A') && c <= QLatin1Char('Z'); };
    if (value.isEmpty()) return false;
    if (column == QLatin1String("CQZone"))
        return value.size() <= 2 && all(digit) && value.toInt() >= 1 && value.toInt() <= 40;
    if (column == QLatin1String("ITUZone"))
        return value.size() <= 2 && all(digit) && value.toInt() >= 1 && value.toInt() <= 90;
    if (column == QLatin1String("Loc1")) return value.size() == 2 && all(letter);
    return true;
}

} // namespace hfc::contests
