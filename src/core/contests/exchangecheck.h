#pragma once
// Is a received exchange acceptable for the contest? One check per contest code, looked up in
// a table; a contest or a station without a check accepts anything. The window shows "Неверно"
// for an exchange that fails and lets the operator confirm it as received.
#include "contests/points.h"

#include <functional>

namespace hfc {

// Whether a code is one of the Russian oblasts of the district table; the window keeps the
// table, the check only asks.
using OblastKnown = std::function<bool(const QString& code)>;

// The check reads the contest, the worked station (call, pref), the received exchange and, in
// "chemp", the received report.
bool exchangeAcceptable(const QsoFacts& q, const OblastKnown& oblastKnown);

// Whether the contest has a check at all (for the coverage of the catalogue).
bool hasExchangeCheck(const QString& contest);

} // namespace hfc
