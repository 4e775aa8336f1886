#pragma once
// What belongs to one log rather than to the station's computer: the full own call, the chosen
// contest, its own exchange, the band and the mode. Kept in the log database, so a second data
// folder is a second station, and read back at start so a restart (or a crash) resumes the log.
#include <QString>

namespace hfc {

class Db;

struct Session {
    QString owncall; // as typed: "UA3ABC/P"
    QString contest; // contestcode
    QString myexch;
    QString band; // curband
    QString mode; // "CW" or "SSB"
};

// The stored session; empty fields where nothing was kept (a new log, a database of an older
// version). A read error gives an empty session: the program starts as before.
Session loadSession(Db& db);

// Keeps one field ("owncall", "contest", "myexch", "band", "mode"). A failed write is passed on
// as DbError, like any other write to the log.
void saveSessionValue(Db& db, const QString& key, const QString& value);

} // namespace hfc
