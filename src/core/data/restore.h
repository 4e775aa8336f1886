#pragma once
// Putting a backup of the log back in place: from the "Сервис" menu and from
// `hfcontest restore [--data-dir DIR] BACKUP`. The backup is checked first, the current log is
// saved as a backup, and the chosen copy takes the log's place however the last run ended: a
// -wal or -shm left by a crash is removed, so SQLite cannot replay it onto the restored log.
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QTextStream>

namespace hfc {

// Checks backup as a log (every table and field, integrity_check, a -wal beside it included)
// and writes its content, whole and on the disk, as the new file work. Nothing else changes.
bool prepareRestore(const QString& backup, const QString& logPath, const QString& work,
                    QString& error);

// Puts work (from prepareRestore) in place of the closed log at logPath: its -wal, -shm and
// -journal are removed first, then work is renamed over it.
bool putRestoreInPlace(const QString& work, const QString& logPath, QString& error);

// Saves the closed log at logPath (with what a crash left beside it) into folder as a dated
// backup; a log that no longer opens is saved byte for byte. Returns the copy's path, or "".
QString saveClosedLog(const QString& logPath, const QString& folder, const QDateTime& when,
                      QString& error);

// What the operator is told after a restore.
QString restoredMessage(const QString& backup, const QString& savedAs);

// `hfcontest restore [--data-dir DIR] BACKUP`: 0 restored, 1 refused or failed (the reason on
// err, in Russian), 2 bad usage.
int runRestoreCommand(const QStringList& args, QTextStream& out, QTextStream& err);

} // namespace hfc
