#pragma once
// The claimed score of the chosen contest read from the log: each QSO's call resolved through
// the prefix table (cty.dat) and the district table as the entry line resolves it, the own
// station from its full call, then the sponsor's rules of contests/claimedscore.
#include "contests/claimedscore.h"

#include <QHash>
#include <QString>
#include <memory>

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

// The prefix table (tbldxcc) and the district table (tblrus) read into memory, for counting a
// whole log: a call costs a few hash probes instead of a query. Read again by ResolvedCalls when
// either table has been edited since.
class CallTables {
  public:
    explicit CallTables(Databases& db);
    ResolvedCall resolve(const QString& contest, const QString& call) const;
    bool current(Databases& db) const;

  private:
    struct Country {
        QString pref, kont, strana;
    };
    QHash<QString, Country> prefixes_;  // prf -> the first row of that prefix naming a country
    QHash<QString, QString> districts_; // district key -> oblast code
    // which connections the tables were read from, and their change counts then
    const void *dxccHandle_ = nullptr, *rusHandle_ = nullptr;
    qint64 dxccChanges_ = 0, rusChanges_ = 0;
};

// Calls already resolved for one contest, kept by a caller that counts the log again, so that
// a count after an edit reads the log and not the tables.
class ResolvedCalls {
  public:
    // A call of contest, from the kept answers, else from the tables: in memory once a count
    // of many rows has asked for them (prepare), else by a query.
    const ResolvedCall& resolve(Databases& db, const QString& contest, const QString& call);
    // About to resolve rows calls: many of them are worth reading the tables into memory for.
    void prepare(Databases& db, size_t rows);
    void clear();

  private:
    QString contest_;
    QHash<QString, ResolvedCall> calls_;
    std::shared_ptr<const CallTables> tables_;
};

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
