#pragma once
// Per-band figures of one contest's log (QSOs, distinct first and second multipliers, point
// sums), kept between recounts. Every figure is what the plain SQL over tbllog gives; the tally
// only skips recomputing what no write has touched. A write it is told about (one QSO added, one
// row edited) costs a few index probes; any other change to the database, from this connection
// or another, is noticed and the whole contest is counted again.
#include "data/db.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <optional>

struct sqlite3;

namespace hfc {

class LogTally {
  public:
    struct Band {
        qint64 qsos = 0;                       // rows whose call is not the placeholder
        qint64 mults = 0;                      // distinct non-empty mult
        qint64 mults2 = 0;                     // distinct non-empty ps
        std::optional<qint64> points, points2; // SUM(CAST(point AS INTEGER)); none over no values
    };

    explicit LogTally(Db& db) : db_(db) {}

    // Brings the figures in step with the log for contest; the point sums only when asked for.
    void sync(const QString& contest, bool withPoints);

    Band band(const QString& bband) const { return bands_.value(bband); }
    qint64 qsos() const;                  // every band
    std::optional<qint64> points() const; // every band

    // Tell the tally about the write just made: the INSERT of rowid, or an UPDATE of one row
    // whose band was, or now is, one of bands. Anything else in between makes it count anew.
    void inserted(qint64 rowid);
    void touched(const QStringList& bands);
    // Any number of writes since the last look, none of them touching a row of the log outside
    // bands: the shared-log link's bookkeeping on our connection and others' QSOs, which its
    // writer commits on a connection of its own (so the file's change is taken as theirs).
    void ownWrites(const QStringList& bands);

    // Full recounts so far: lets tests see that a known write did not need one.
    int fullCounts() const { return fullCounts_; }

  private:
    struct Version {
        sqlite3* handle = nullptr;
        qint64 changes = -1; // writes through our connection
        qint64 data = -1;    // commits by other connections
        bool operator==(const Version&) const = default;
    };
    Version version();
    bool acceptOwnWrite(); // true when exactly one write happened since the last look
    void countAll();
    void countBand(const QString& bband);
    void count(bool oneBand, const QString& bband);
    void addRows(const Rows& qsos, const Rows& mults, const Rows& mults2, const Rows& sums);

    Db& db_;
    bool valid_ = false;
    QString contest_;
    bool withPoints_ = false;
    Version seen_;
    QHash<QString, Band> bands_;
    QSet<QString> stale_;
    int fullCounts_ = 0;
};

} // namespace hfc
