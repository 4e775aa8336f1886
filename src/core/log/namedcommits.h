#pragma once
// Commits that another connection to the same log file (the shared log's writer, on a thread of
// its own) is about to make, named before they are made: a reader on the window's connection
// then takes the file's change for those rows instead of reading the whole contest again. A
// change of the file that nobody named (another program) is still read anew, unless it lands
// at the very moment of a named one. Thread-safe.
#include <QList>
#include <QMutex>

namespace hfc {

class NamedCommits {
  public:
    void naming(const QList<qint64>& rowids); // before COMMIT: the tbllog rows it changes
    void done();                              // after that COMMIT or its ROLLBACK
    // The rows named since the last take; false when no commit was named meanwhile, or when
    // too many rows were named while nobody took them (the reader reads anew). While a named
    // commit may still land, its rows are handed out again at the next take.
    bool take(QList<qint64>& rowids);

  private:
    QMutex mutex_;
    QList<qint64> rows_;
    int named_ = 0;     // since the last take
    int open_ = 0;      // named and not done
    bool lost_ = false; // rows dropped while nobody took them
};

} // namespace hfc
