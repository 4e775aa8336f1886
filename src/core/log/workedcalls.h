#pragma once
// The calls of one contest's log and the bands each was worked on, kept in step with the log:
// the check "worked in this contest / on this band" that the lists beside the call box (and any
// other list of calls) mark their entries with, without a query per entry.
#include "data/db.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

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

    // Brings the set in step with tbllog for contest: new rows of our own are added, any other
    // change (an edit, a clearing, another program's write) reads the contest anew.
    void sync(Db& db, const QString& contest);
    int fullReads() const { return fullReads_; } // lets tests see a QSO did not need one

  private:
    struct Version {
        sqlite3* handle = nullptr;
        qint64 changes = -1;
        qint64 data = -1;
        bool operator==(const Version&) const = default;
    };
    static Version versionOf(Db& db);

    QHash<QString, QSet<QString>> bands_; // call -> bands worked
    QStringList order_;
    QString contest_;
    Version seen_;
    qint64 lastRowid_ = 0;
    int fullReads_ = 0;
};

// The mark as the lists name it: "band", "contest" or "".
QString workedName(Worked w);

} // namespace hfc
