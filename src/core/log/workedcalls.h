#pragma once
// The calls of one contest's log and the bands each was worked on, kept in step with the log:
// the check "worked in this contest / on this band" that the lists beside the call box (and any
// other list of calls) mark their entries with, without a query per entry.
#include "data/db.h"
#include "log/namedcommits.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <utility>
#include <vector>

struct sqlite3;

namespace hfc {

enum class Worked {
    No,
    InContest, // in this contest, on another band
    OnBand,    // in this contest, on this band
};

class WorkedCalls {
  public:
    // The pure part: calls and bands as they are added.
    void clear();
    void add(const QString& call, const QString& band);
    Worked check(const QString& call, const QString& band) const;
    const QStringList& calls() const { return order_; } // each call once, in log order

    // Brings the set in step with tbllog for contest: rows written with announce(), rows of the
    // commits named in elsewhere (made on another connection) and new rows of our own are read
    // one by one; any other change (an edit nobody announced, a clearing, another program's
    // write) reads the contest anew.
    void sync(Db& db, const QString& contest, NamedCommits* elsewhere = nullptr);
    // A write on the connection that said which tbllog rows it inserted, changed or deleted
    // (none, for the shared log's bookkeeping); before and after are the connection's
    // sqlite3_total_changes64 around it. Those rows are read again at the next sync, and the
    // write's other changes are not taken for unknown ones.
    void announce(sqlite3* handle, qint64 before, qint64 after, const QList<qint64>& rowids);

    int fullReads() const { return fullReads_; } // lets tests see a QSO did not need one
    // Calls that left the set (their last QSO deleted or edited to another call) without a full
    // read: an index built from calls() must then be built again.
    int removals() const { return removals_; }

  private:
    struct Version {
        sqlite3* handle = nullptr;
        qint64 changes = -1;
        qint64 data = -1;
        bool operator==(const Version&) const = default;
    };
    struct Announced {
        sqlite3* handle = nullptr;
        qint64 before = 0, after = 0;
        QList<qint64> rowids;
    };
    static Version versionOf(Db& db);
    bool syncKnown(Db& db, const Version& now, const QList<qint64>& elsewhere);
    void fullRead(Db& db, const QString& contest);
    void remove(const QString& call, const QString& band);
    void setRow(qint64 rowid, const QString& call, const QString& band);
    void dropRow(qint64 rowid);

    QHash<QString, QHash<QString, int>> bands_;       // call -> band -> QSOs
    QHash<qint64, std::pair<QString, QString>> rows_; // the contest's rows: rowid -> call, band
    QStringList order_;
    QString contest_;
    Version seen_;
    qint64 lastRowid_ = 0;
    std::vector<Announced> announced_; // since the last sync, in order
    bool announcedLost_ = false;       // too many kept while nobody looked: read anew
    int fullReads_ = 0;
    int removals_ = 0;
};

// The mark as the lists name it: "band", "contest" or "".
QString workedName(Worked w);

} // namespace hfc
