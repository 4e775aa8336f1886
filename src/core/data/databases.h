#pragma once
// The five database files of the data folder: opened at start, created and seeded when missing,
// never overwritten when present, and refused (left untouched) when not usable.
#include "data/db.h"
#include "data/folderlock.h"
#include "data/schema.h"

#include <QDateTime>

#include <QHash>
#include <QString>
#include <utility>

namespace hfc {

class Databases {
  public:
    Databases() = default;
    ~Databases();
    Databases(const Databases&) = delete;
    Databases& operator=(const Databases&) = delete;

    // Opens (creating and seeding missing files) every database in dir. On failure returns
    // false and sets error to a Russian message naming the file; no existing file is changed.
    // The folder is held (one program per data folder) until this object goes; holdFolder
    // false opens beside a running logger (a report written from the command line).
    bool open(const QString& dir, QString& error, bool holdFolder = true);

    // Puts the backup file in place of the log: checks it, saves the current log as a backup
    // first, and reopens the log. savedAs is that saved copy. False with error (in Russian) when
    // the backup is refused or a step fails; the log is then as it was.
    bool restoreLog(const QString& backup, const QDateTime& when, QString& savedAs, QString& error);

    Db contest; // dbcontest.sqlite: tbllog, tbllogTemp, tbltit, rezult
    Db dxcc;    // dbdxcc1.sqlite: tbldxcc
    Db rus;     // dbrusdx.sqlite: tblrus
    Db help;    // dbhelp.sqlite: tblhelp
    Db iaru;    // dbiaru.sqlite: tbllog1

    Db* byKey(const QString& key); // contest, dxcc, rus, help, iaru
    const QString& dir() const { return dir_; }
    QString filePath(const QString& fileName) const;
    // The file a database is read from: its path in the folder, or the file a link there names.
    QString pathOf(const QString& key) const;
    // The file that db was opened from is still the one at its path: not removed, not replaced.
    // A handle to a removed file would write into nothing the operator can see.
    bool stillInPlace(const Db& db) const;

  private:
    bool openOne(const DbFileDef& def, QString& error);
    QString checkMarksPath() const;
    QHash<QString, QString> readCheckMarks() const;

    FolderLock lock_;
    QString dir_;
    QHash<QString, QString> paths_;                         // key -> the file opened
    QHash<const Db*, std::pair<quint64, quint64>> fileIds_; // device and inode at open
};

// The data folder: --data-dir, else $HFCONTEST_DIR, else $XDG_DATA_HOME/hfcontest
// (~/.local/share/hfcontest).
QString defaultDataDir();

} // namespace hfc
