#pragma once
// The claimed score of one contest by its sponsor's current rules: QSO points, the sponsor's
// multipliers in their scope (per band, per band and mode, per mode, once) and the sponsor's
// final formula. Pure: the caller hands in the contest's logged rows, each with the worked
// station resolved (country, continent, Russian oblast), and the own station. ClaimedTally takes
// rows one at a time, so a window can keep the figure up to date after each QSO for the cost of
// a few hash probes.
#include <QHash>
#include <QSet>
#include <QString>
#include <vector>

namespace hfc::contests {

struct ScoreRow {
    QString call;
    QString band;     // bband: "1,8" … "28"
    QString mode;     // ps1: "CW", "SSB"; "DUPE" for a repeat, which scores nothing
    QString report;   // rstr1
    QString exchange; // rstr2: the received exchange as logged
    QString prefix;   // PRF: the WPX prefix
    QString mult;     // the entry line's first-multiplier mark (SAC keeps its area there)
    qint64 points = 0, points2 = 0;
    // the worked station, resolved from its call: entity prefix ("" for /MM and /AM, which
    // bring no country), continent and, for Russian calls, the oblast code
    QString pref, kont, oblast;
};

struct ScoreStation {
    QString call; // owncall, as typed
    QString pref, kont;
    QString myexch;  // the own fixed exchange (RAEM: own coordinates)
    qint64 qtcs = 0; // WAE: QTCs sent or received
};

struct ClaimedScore {
    qint64 qsos = 0;   // QSOs that count (repeats left out)
    qint64 points = 0; // QSO points (WAE: QSOs + QTCs)
    qint64 mults = 0;  // multipliers (WAE: band-weighted)
    qint64 total = 0;
    QString breakdown; // short, in Russian: "1234 оч. × 56 мн. = 69104"
};

class ClaimedTally {
  public:
    ClaimedTally() = default;
    ClaimedTally(const QString& contest, const ScoreStation& station);
    void add(const ScoreRow& row);
    ClaimedScore result() const;
    const QString& contest() const { return contest_; }

  private:
    QString contest_;
    ScoreStation station_;
    const void* scoring_ = nullptr; // the contest's row of the sponsors' table, looked up once
    qint64 qsos_ = 0, scoringQsos_ = 0, points_ = 0, bonus_ = 0;
    QSet<QString> mults_;        // "scope|kind|key"
    QHash<QString, int> weight_; // WAE: multipliers per band
};

ClaimedScore claimedScore(const QString& contest, const std::vector<ScoreRow>& rows,
                          const ScoreStation& station);

// What the claimed score of a contest cannot count because the log does not hold it (a
// sponsor's list of bonus stations), as a line for the report window's check list; "" if none.
QString claimLimits(const QString& contest);

// A numeric exchange (zone, licence year) compared as a number and written with two digits:
// "5" and "005" are "05". Other text is returned as it is.
QString numericExchange(const QString& exchange);

// Contests whose received exchange is a number that counts as a multiplier (zones, licence
// years): the entry line writes it through numericExchange.
bool hasNumericExchange(const QString& contest);

} // namespace hfc::contests
