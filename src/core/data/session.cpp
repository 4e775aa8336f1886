#include "data/session.h"

#include "data/db.h"

namespace hfc {

namespace {

// Created on first use: a log database of an older version gains the table without a new file.
void ensureTable(Db& db) {
    db.exec(
        QStringLiteral("CREATE TABLE IF NOT EXISTS tblsession (key TEXT PRIMARY KEY, value TEXT)"));
}

} // namespace

Session loadSession(Db& db) {
    Session s;
    try {
        if (!db.exists(QStringLiteral(
                "SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = 'tblsession'")))
            return s;
        for (const QStringList& r : db.query(QStringLiteral("SELECT key, value FROM tblsession"))) {
            const QString& k = r.value(0);
            const QString v = r.value(1);
            if (k == QLatin1String("owncall"))
                s.owncall = v;
            else if (k == QLatin1String("contest"))
                s.contest = v;
            else if (k == QLatin1String("myexch"))
                s.myexch = v;
            else if (k == QLatin1String("band"))
                s.band = v;
            else if (k == QLatin1String("mode"))
                s.mode = v;
        }
    } catch (const DbError&) {
        return {};
    }
    return s;
}

void saveSessionValue(Db& db, const QString& key, const QString& value) {
    ensureTable(db);
    db.run(QStringLiteral("INSERT OR REPLACE INTO tblsession (key, value) VALUES (?1, ?2)"),
           {key, value});
}

} // namespace hfc
