#include "data/backup.h"

#include "data/db.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <sqlite3.h>

namespace hfc {

namespace {

QString freeName(const QString& folder, const QString& base) {
    QString path = folder + '/' + base + QStringLiteral(".sqlite");
    for (int n = 2; QFileInfo::exists(path); ++n)
        path = folder + '/' + base + QStringLiteral("-%1.sqlite").arg(n);
    return path;
}

} // namespace

QString backupDatabase(Db& db, const QString& folder, const QString& stem, const QDateTime& when,
                       QString& error) {
    if (!db.isOpen()) {
        error = QStringLiteral("база данных не открыта");
        return {};
    }
    if (!QDir().mkpath(folder)) {
        error = QStringLiteral("не удалось создать папку «%1»").arg(folder);
        return {};
    }
    const QString path =
        freeName(folder, stem + '-' + when.toString(QStringLiteral("yyyyMMdd-hhmmss")));
    sqlite3* dest = nullptr;
    int rc = sqlite3_open_v2(path.toUtf8().constData(), &dest,
                             SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    if (rc == SQLITE_OK) {
        sqlite3_backup* b = sqlite3_backup_init(dest, "main", db.handle(), "main");
        if (b) {
            const int step = sqlite3_backup_step(b, -1);
            rc = sqlite3_backup_finish(b);
            if (step != SQLITE_DONE && rc == SQLITE_OK) rc = step;
        } else {
            rc = sqlite3_errcode(dest);
        }
    }
    if (rc != SQLITE_OK) {
        error = dest ? QString::fromUtf8(sqlite3_errmsg(dest))
                     : QStringLiteral("ошибка SQLite %1").arg(rc);
        sqlite3_close(dest);
        QFile::remove(path);
        return {};
    }
    // The copy is a plain file of its own: no journal left beside it.
    sqlite3_exec(dest, "PRAGMA journal_mode=DELETE", nullptr, nullptr, nullptr);
    if (sqlite3_close(dest) != SQLITE_OK) {
        error = QStringLiteral("копия не закрылась");
        return {};
    }
    return path;
}

} // namespace hfc
