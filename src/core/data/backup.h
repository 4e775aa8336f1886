#pragma once
// Dated copies of a database, taken before anything deletes log rows, so that a wrong answer
// to a clearing question never loses a log.
#include <QDateTime>
#include <QString>

namespace hfc {

class Db;

// Writes a consistent copy of db (SQLite's online backup, safe while the file is in use) to
// folder/<stem>-yyyyMMdd-hhmmss.sqlite, creating the folder; an existing copy is never
// overwritten (a "-2", "-3" … is added instead). Returns the path of the copy, or "" with error
// set (in Russian) when no copy could be made.
QString backupDatabase(Db& db, const QString& folder, const QString& stem, const QDateTime& when,
                       QString& error);

} // namespace hfc
