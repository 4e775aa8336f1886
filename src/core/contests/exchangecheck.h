#pragma once
// Is a received exchange acceptable for the contest? Each contest's row names its check; a
// contest or a station without a check accepts anything. The window shows "Неверно"
// for an exchange that fails and lets the operator confirm it as received.
#include "contests/contestdef.h"
#include "contests/points.h"

#include <functional>

namespace hfc {

// Whether a code is one of the Russian oblasts of the district table; the window keeps the
// table, the check only asks.
using OblastKnown = std::function<bool(const QString& code)>;

// What a check reads: the worked station (call, pref), the received report, and the exchange in
// upper case without surrounding blanks.
struct ExchangeFacts {
    const QsoFacts& q;
    QString ex;
    const OblastKnown& oblast;
};

// The checks the contests' rows name (several contests share one).
namespace contests::checks {
bool serial(const ExchangeFacts& c);
bool chemp(const ExchangeFacts& c);
bool twoDigits(const ExchangeFacts& c);
bool agcw(const ExchangeFacts& c);
bool ari(const ExchangeFacts& c);
bool arrl10(const ExchangeFacts& c);
bool cq160(const ExchangeFacts& c);
bool cqZone(const ExchangeFacts& c);
bool ituZone(const ExchangeFacts& c);
bool ea(const ExchangeFacts& c);
bool ha(const ExchangeFacts& c);
bool hol(const ExchangeFacts& c);
bool hel(const ExchangeFacts& c);
bool iaru(const ExchangeFacts& c);
bool jid(const ExchangeFacts& c);
bool kcj(const ExchangeFacts& c);
bool lzd(const ExchangeFacts& c);
bool lzo(const ExchangeFacts& c);
bool ok(const ExchangeFacts& c);
bool pacc(const ExchangeFacts& c);
bool raem(const ExchangeFacts& c);
bool ref(const ExchangeFacts& c);
bool rsgb(const ExchangeFacts& c);
bool rudx(const ExchangeFacts& c);
bool sp(const ExchangeFacts& c);
bool square(const ExchangeFacts& c);
bool tops(const ExchangeFacts& c);
bool uba(const ExchangeFacts& c);
bool iota(const ExchangeFacts& c);
bool ukr(const ExchangeFacts& c);
bool wag(const ExchangeFacts& c);
bool yo(const ExchangeFacts& c);
} // namespace contests::checks

// The check reads the contest, the worked station (call, pref), the received exchange and, in
// "chemp", the received report.
bool exchangeAcceptable(const QsoFacts& q, const OblastKnown& oblastKnown);

// Whether the contest has a check at all (for the coverage of the catalogue).
bool hasExchangeCheck(const QString& contest);

} // namespace hfc
