#pragma once
// Which column of a call history holds the exchange a contest receives.
#include <QString>

namespace hfc::contests {

// "CQZone" where the exchange is the CQ zone (CQ WW), "ITUZone" where it is the ITU zone (IARU),
// "Loc1" (the Russian oblast) in the Russian DX contest, "Exch1" everywhere else.
QString historyColumn(const QString& code);

// Whether a received exchange is a value of the column: a zone is a number (not a serial
// number's leading zeros past two digits), an oblast two letters. Exch1 takes anything.
bool historyValueFits(const QString& column, const QString& value);

} // namespace hfc::contests
