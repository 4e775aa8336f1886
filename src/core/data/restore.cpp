#include "data/restore.h"

#include "data/backup.h"
#include "data/databases.h"
#include "data/dbcheck.h"
#include "data/folderlock.h"
#include "data/safefile.h"
#include "data/schema.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <cerrno>
#include <cstdio>
#include <unistd.h>

namespace hfc {

namespace {

const DbFileDef& logDef() {
    for (const DbFileDef& def : databaseFiles())
        if (def.key == QLatin1String("contest")) return def;
    return databaseFiles().front();
}

const char* const kCompanions[] = {"-wal", "-journal"};

// A copy of the database at path with what a crash left beside it, in scratch, opened there so
// that SQLite folds it in on the copy only.
bool openScratchCopy(const QString& path, const QTemporaryDir& scratch, Db& db, QString& error) {
    const QString copy = scratch.filePath(QStringLiteral("copy.sqlite"));
    if (!copyFileWhole(path, copy, &error)) return false;
    for (const char* suffix : kCompanions) {
        const QString from = path + QLatin1String(suffix);
        if (QFileInfo::exists(from) && !copyFileWhole(from, copy + QLatin1String(suffix), &error))
            return false;
    }
    try {
        db.open(copy, false);
    } catch (const DbError& e) {
        error = dbErrorReason(e);
        return false;
    }
    return true;
}

void removeWithCompanions(const QString& path) {
    for (const char* suffix : {"", "-journal", "-wal", "-shm"})
        QFile::remove(path + QLatin1String(suffix));
}

} // namespace

bool prepareRestore(const QString& backup, const QString& logPath, const QString& work,
                    QString& error) {
    const QString shown = QDir::toNativeSeparators(backup);
    if (!QFileInfo(backup).isFile()) {
        error = QStringLiteral("Файл копии «%1» не найден.").arg(shown);
        return false;
    }
    if (QFileInfo(backup).canonicalFilePath() == QFileInfo(logPath).canonicalFilePath()) {
        error = QStringLiteral("«%1» — это сам журнал, а не его копия.").arg(shown);
        return false;
    }
    QString why;
    if (!checkDatabaseFile(backup, logDef(), true, why)) {
        error = QStringLiteral("Копия «%1» не годится: %2.\nЖурнал не изменён.").arg(shown, why);
        return false;
    }
    QTemporaryDir scratch;
    Db copy;
    removeWithCompanions(work);
    if (!scratch.isValid() || !openScratchCopy(backup, scratch, copy, why)) {
        error = QStringLiteral("Не удалось прочитать копию «%1»: %2.\nЖурнал не изменён.")
                    .arg(shown, why);
        return false;
    }
    // A compact, self-contained file of the copy's content, beside the log under a working name.
    try {
        copy.run(QStringLiteral("VACUUM INTO ?1"), {work});
        copy.close();
    } catch (const DbError& e) {
        copy.close();
        removeWithCompanions(work);
        error = QStringLiteral("Не удалось подготовить журнал из копии «%1»: %2.\nЖурнал не "
                               "изменён.")
                    .arg(shown, dbErrorReason(e));
        return false;
    }
    if (!syncFile(work)) {
        error = fileWriteError(work, errno);
        removeWithCompanions(work);
        return false;
    }
    return true;
}

bool putRestoreInPlace(const QString& work, const QString& logPath, QString& error) {
    // The stale -wal first: left beside the restored file it would be replayed onto it.
    for (const char* suffix : {"-wal", "-shm", "-journal"}) {
        const QByteArray p = QFile::encodeName(logPath + QLatin1String(suffix));
        if (::unlink(p.constData()) != 0 && errno != ENOENT) {
            error = QStringLiteral("Не удалось убрать «%1»: %2.")
                        .arg(QFile::decodeName(p), fileErrorReason(errno));
            return false;
        }
    }
    if (std::rename(QFile::encodeName(work).constData(), QFile::encodeName(logPath).constData()) !=
        0) {
        error = QStringLiteral("Не удалось поставить копию на место журнала «%1»: %2.")
                    .arg(logPath, fileErrorReason(errno));
        return false;
    }
    syncFolderOf(logPath);
    return true;
}

QString saveClosedLog(const QString& logPath, const QString& folder, const QDateTime& when,
                      QString& error) {
    QTemporaryDir scratch;
    Db log;
    QString why;
    if (scratch.isValid() && openScratchCopy(logPath, scratch, log, why)) {
        const QString saved = backupDatabase(log, folder, QStringLiteral("dbcontest"), when, why);
        if (!saved.isEmpty()) return saved;
    }
    // A log that does not open is kept as it was, with its -wal, for whoever mends it.
    if (!QDir().mkpath(folder)) {
        error = QStringLiteral("не удалось создать папку «%1»").arg(folder);
        return {};
    }
    const QString saved = folder + QStringLiteral("/dbcontest-%1-as-found.sqlite")
                                       .arg(when.toString(QStringLiteral("yyyyMMdd-hhmmss")));
    for (const char* suffix : kCompanions) {
        const QString from = logPath + QLatin1String(suffix);
        if (QFileInfo::exists(from) && !copyFileWhole(from, saved + QLatin1String(suffix), &error))
            return {};
    }
    if (!copyFileWhole(logPath, saved, &error)) return {};
    return saved;
}

QString restoredMessage(const QString& backup, const QString& savedAs) {
    QString text =
        QStringLiteral("Журнал восстановлен из копии «%1».").arg(QDir::toNativeSeparators(backup));
    if (!savedAs.isEmpty())
        text += QStringLiteral("\nПрежний журнал сохранён в «%1».")
                    .arg(QDir::toNativeSeparators(savedAs));
    return text;
}

bool Databases::restoreLog(const QString& backup, const QDateTime& when, QString& savedAs,
                           QString& error) {
    const QString logPath = pathOf(QStringLiteral("contest"));
    const QString work = logPath + QStringLiteral(".restore");
    if (!prepareRestore(backup, logPath, work, error)) return false;
    QString why;
    savedAs = backupDatabase(contest, filePath(QStringLiteral("backup")),
                             QStringLiteral("dbcontest"), when, why);
    if (savedAs.isEmpty()) {
        removeWithCompanions(work);
        error = QStringLiteral("Не удалось сохранить текущий журнал перед восстановлением: %1.\n"
                               "Журнал не изменён.")
                    .arg(why);
        return false;
    }
    contest.close();
    const bool placed = putRestoreInPlace(work, logPath, error);
    if (!placed) removeWithCompanions(work);
    // Reopened either way: the restored log, or the one that stayed.
    QString reopenError;
    if (!openOne(logDef(), reopenError)) {
        error += (error.isEmpty() ? QString() : QStringLiteral("\n")) + reopenError;
        return false;
    }
    return placed;
}

namespace {

int usage(QTextStream& err, const QString& why) {
    err << why << "\n"
        << QStringLiteral("Использование: hfcontest restore [--data-dir ПАПКА_ДАННЫХ] КОПИЯ")
        << "\n";
    return 2;
}

} // namespace

int runRestoreCommand(const QStringList& argsIn, QTextStream& out, QTextStream& err) {
    QStringList args = argsIn;
    if (!args.isEmpty() && args.front() == QLatin1String("restore")) args.removeFirst();
    QString dataDir, backup;
    for (int i = 0; i < args.size(); ++i) {
        if (args[i] == QLatin1String("--data-dir")) {
            if (i + 1 >= args.size())
                return usage(err, QStringLiteral("Не задано значение для --data-dir."));
            dataDir = args[++i];
        } else if (args[i].startsWith(QLatin1String("--"))) {
            return usage(err, QStringLiteral("Неизвестный параметр %1.").arg(args[i]));
        } else if (backup.isEmpty()) {
            backup = args[i];
        } else {
            return usage(err, QStringLiteral("Лишнее слово в команде: %1.").arg(args[i]));
        }
    }
    if (backup.isEmpty()) return usage(err, QStringLiteral("Не указан файл копии."));
    if (dataDir.isEmpty()) dataDir = defaultDataDir();
    if (!QFileInfo(dataDir).isDir()) {
        err << QStringLiteral("Папка данных «%1» не найдена.").arg(dataDir) << "\n";
        return 1;
    }
    // Not while a logger works on the folder: it would go on writing into the replaced file.
    FolderLock lock;
    QString error;
    if (!lock.take(dataDir, error)) {
        err << error << "\n";
        return 1;
    }
    QString logPath;
    if (!followDatabaseLink(dataDir + QLatin1Char('/') + logDef().file, logPath, error)) {
        err << error << "\n";
        return 1;
    }
    const QString work = logPath + QStringLiteral(".restore");
    if (!prepareRestore(backup, logPath, work, error)) {
        err << error << "\n";
        return 1;
    }
    QString savedAs;
    if (fileOrLinkAt(logPath)) {
        savedAs = saveClosedLog(logPath, dataDir + QStringLiteral("/backup"),
                                QDateTime::currentDateTime(), error);
        if (savedAs.isEmpty()) {
            removeWithCompanions(work);
            err << QStringLiteral("Не удалось сохранить текущий журнал перед восстановлением: "
                                  "%1\nЖурнал не изменён.")
                       .arg(error)
                << "\n";
            return 1;
        }
    }
    if (!putRestoreInPlace(work, logPath, error)) {
        removeWithCompanions(work);
        err << error << "\n";
        return 1;
    }
    out << restoredMessage(backup, savedAs) << "\n";
    return 0;
}

} // namespace hfc
