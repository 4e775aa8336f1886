#pragma once
// The five database files of the data folder: opened at start, created and seeded when missing,
// never overwritten when present, and refused (left untouched) when not usable.
#include "data/db.h"

#include <QHash>
#include <QString>
#include <utility>

namespace hfc {

class Databases {
  public:
    // Opens (creating and seeding missing files) every database in dir. On failure returns
    // false and sets error to a Russian message naming the file; no existing file is changed.
    bool open(const QString& dir, QString& error);

    Db contest; // dbcontest.sqlite: tbllog, tbllogTemp, tbltit, rezult
    Db dxcc;    // dbdxcc1.sqlite: tbldxcc
    Db rus;     // dbrusdx.sqlite: tblrus
    Db help;    // dbhelp.sqlite: tblhelp
    Db iaru;    // dbiaru.sqlite: tbllog1

    Db* byKey(const QString& key); // contest, dxcc, rus, help, iaru
    const QString& dir() const { return dir_; }
    QString filePath(const QString& fileName) const;
    // The file that db was opened from is still the one at its path: not removed, not replaced.
    // A handle to a removed file would write into nothing the operator can see.
    bool stillInPlace(const Db& db) const;

  private:
    QString dir_;
    QHash<const Db*, std::pair<quint64, quint64>> fileIds_; // device and inode at open
};

// The data folder: --data-dir, else $HFCONTEST_DIR, else $XDG_DATA_HOME/hfcontest
// (~/.local/share/hfcontest).
QString defaultDataDir();

} // namespace hfc
