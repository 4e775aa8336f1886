#pragma once
// The check of a database file before the program uses it. Checking never writes: not to the
// file, not to its -wal or -shm, so a file that is refused is left exactly as it was found.
#include "data/schema.h"

#include <QString>

namespace hfc {

// Checks that path is an SQLite database holding every table and column of def and is intact:
// quick (every page read, quick_check) or full (integrity_check, which also compares every
// index with its table). A -wal or -journal left beside it by a crash is taken into account on
// a private copy. False with why set in Russian: damaged, cut short, lacking a table or field,
// no space, unreadable.
bool checkDatabaseFile(const QString& path, const DbFileDef& def, bool full, QString& why);

// Something stands at path: a file, or a link even when its target is missing.
bool fileOrLinkAt(const QString& path);

// A database path that is a link is followed: resolved is the file it names (path itself when
// it is no link or nothing is there). A link whose target is missing or that loops gives false
// with error naming the link and its target.
bool followDatabaseLink(const QString& path, QString& resolved, QString& error);

// What tells a file changed since it was last fully checked: size, modification time, inode.
QString fileStamp(const QString& path);

// Less free space on the folder's disk than logging needs (its WAL and shared-memory files).
bool noSpaceLeft(const QString& folder);

} // namespace hfc
