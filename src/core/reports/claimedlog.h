#pragma once
// The claimed score of the chosen contest read from the log: each QSO's call resolved through
// the prefix table (cty.dat) and the district table as the entry line resolves it, the own
// station from its full call, then the sponsor's rules of contests/claimedscore.
#include "contests/claimedscore.h"

#include <QHash>
#include <QString>

namespace hfc {

class Databases;

struct ResolvedCall {
    QString pref, kont, strana, oblast;
};

// A call as the entry line resolves it: the longest prefix row of cty.dat, Russian portable
// call areas ("RA9AA/3"), CQ-M's areas for contest "cqm", no country for /MM and /AM, and the
// oblast code of a Russian call. An unknown call resolves to nothing.
ResolvedCall resolveCall(Databases& db, const QString& contest, const QString& call);

// The own station for scoring; a call no table knows counts as one in European Russia.
contests::ScoreStation scoreStation(Databases& db, const QString& contest, const QString& owncall,
                                    const QString& myexch);

// Calls already resolved for one contest, kept by a caller that counts the log again.
using ResolvedCalls = QHash<QString, ResolvedCall>;

// The contest's rows of tbllog in entry order, resolved, past rowid afterRowid. cache, if given,
// keeps the resolved calls for the next call with the same contest.
std::vector<contests::ScoreRow> scoreRows(Databases& db, const QString& contest,
                                          qint64 afterRowid = 0, qint64* lastRowid = nullptr,
                                          ResolvedCalls* cache = nullptr);

// WAE: the QTC lines of the QTC table.
qint64 qtcCount(Databases& db);

contests::ClaimedScore claimedScoreOfLog(Databases& db, const QString& contest,
                                         const QString& owncall, const QString& myexch);

} // namespace hfc
