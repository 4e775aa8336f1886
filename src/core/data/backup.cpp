#include "data/backup.h"

#include "data/db.h"
#include "data/safefile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstdio>
#include <sqlite3.h>

namespace hfc {

namespace {

QString freeName(const QString& folder, const QString& base) {
    QString path = folder + '/' + base + QStringLiteral(".sqlite");
    for (int n = 2; QFileInfo::exists(path); ++n)
        path = folder + '/' + base + QStringLiteral("-%1.sqlite").arg(n);
    return path;
}

void removeWithCompanions(const QString& path) {
    for (const char* suffix : {"", "-journal", "-wal", "-shm"})
        QFile::remove(path + QLatin1String(suffix));
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
    // Written under a working name and renamed when complete: a copy cut short by a crash or a
    // full disk never stands under a backup's name, nor with a journal beside it.
    const QString work = path + QStringLiteral(".part");
    removeWithCompanions(work);
    sqlite3* dest = nullptr;
    int rc = sqlite3_open_v2(QFile::encodeName(work).constData(), &dest,
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
    if (rc == SQLITE_OK) {
        // The copy is a plain file of its own: no journal or WAL beside it.
        rc = sqlite3_exec(dest, "PRAGMA journal_mode=DELETE", nullptr, nullptr, nullptr);
    }
    if (rc != SQLITE_OK) {
        error = dbErrorReason(DbError(dest ? sqlite3_errmsg(dest) : "backup", rc & 0xff, work));
        sqlite3_close(dest);
        removeWithCompanions(work);
        return {};
    }
    if (sqlite3_close(dest) != SQLITE_OK) {
        error = QStringLiteral("копия не закрылась");
        removeWithCompanions(work);
        return {};
    }
    if (!syncFile(work) || std::rename(QFile::encodeName(work).constData(),
                                       QFile::encodeName(path).constData()) != 0) {
        error = fileErrorReason(errno);
        removeWithCompanions(work);
        return {};
    }
    syncFolderOf(path);
    return path;
}

} // namespace hfc
