#include "data/dbcheck.h"

#include "data/db.h"
#include "data/safefile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <QSet>
#include <QTemporaryDir>
#include <QUrl>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/statvfs.h>

namespace hfc {

namespace {

const QString& damaged() {
    static const QString why = QStringLiteral("это не база данных SQLite или файл повреждён");
    return why;
}

// SQLite's failure in words: damage as damage, a full disk as a full disk.
QString reasonOf(sqlite3* h, int rc) {
    const int code = (h ? sqlite3_errcode(h) : rc) & 0xff;
    if (code == SQLITE_CORRUPT || code == SQLITE_NOTADB) return damaged();
    return dbErrorReason(DbError(h ? sqlite3_errmsg(h) : "open", code));
}

quint32 bigEndian(const uchar* p, int n) {
    quint32 v = 0;
    for (int i = 0; i < n; ++i) v = (v << 8) | p[i];
    return v;
}

// The header's page size and page count against the file's length: a file cut short (even by
// one byte) reads as zeros past its end and could pass the page checks.
bool lengthFitsHeader(const QString& path, QString& why) {
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) {
        why = QStringLiteral("файл не читается");
        return false;
    }
    const QByteArray h = f.read(100);
    const qint64 size = f.size();
    if (h.size() < 100 || !h.startsWith(QByteArrayLiteral("SQLite format 3\0"))) {
        why = damaged();
        return false;
    }
    const auto* u = reinterpret_cast<const uchar*>(h.constData());
    qint64 pageSize = bigEndian(u + 16, 2);
    if (pageSize == 1) pageSize = 65536;
    if (pageSize < 512 || (pageSize & (pageSize - 1)) != 0) {
        why = damaged();
        return false;
    }
    const quint32 pages = bigEndian(u + 28, 4);
    const bool countValid = bigEndian(u + 24, 4) == bigEndian(u + 92, 4);
    if (size % pageSize != 0 || (countValid && pages > 0 && size < qint64(pages) * pageSize)) {
        why = QStringLiteral("файл обрезан или повреждён (длина не сходится с заголовком)");
        return false;
    }
    return true;
}

bool hasContent(const QString& path) {
    return QFileInfo(path).size() > 0;
}

bool checkTables(sqlite3* h, const DbFileDef& def, QString& why) {
    for (const TableDef& t : def.tables) {
        const QByteArray sql = QStringLiteral("PRAGMA table_info(%1)").arg(t.name).toUtf8();
        sqlite3_stmt* st = nullptr;
        if (sqlite3_prepare_v2(h, sql.constData(), -1, &st, nullptr) != SQLITE_OK) {
            why = reasonOf(h, SQLITE_ERROR);
            return false;
        }
        QSet<QString> have;
        int rc;
        while ((rc = sqlite3_step(st)) == SQLITE_ROW)
            have.insert(QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(st, 1)))
                            .toLower());
        sqlite3_finalize(st);
        if (rc != SQLITE_DONE) {
            why = reasonOf(h, rc);
            return false;
        }
        if (have.isEmpty()) {
            why = QStringLiteral("в ней нет таблицы %1").arg(t.name);
            return false;
        }
        for (const QString& c : t.columns) {
            if (!have.contains(c.toLower())) {
                why = QStringLiteral("в таблице %1 нет поля %2").arg(t.name, c);
                return false;
            }
        }
    }
    return true;
}

bool checkIntact(sqlite3* h, bool full, QString& why) {
    sqlite3_stmt* st = nullptr;
    const char* sql = full ? "PRAGMA integrity_check(1)" : "PRAGMA quick_check(1)";
    int rc = sqlite3_prepare_v2(h, sql, -1, &st, nullptr);
    if (rc == SQLITE_OK) rc = sqlite3_step(st);
    const bool ok = rc == SQLITE_ROW &&
                    qstrcmp(reinterpret_cast<const char*>(sqlite3_column_text(st, 0)), "ok") == 0;
    sqlite3_finalize(st);
    if (ok) return true;
    why = rc == SQLITE_ROW ? QStringLiteral("файл повреждён (проверка целостности не пройдена)")
                           : reasonOf(h, rc);
    return false;
}

} // namespace

bool checkDatabaseFile(const QString& path, const DbFileDef& def, bool full, QString& why) {
    if (QFileInfo(path).size() == 0) {
        why = QStringLiteral("файл пуст");
        return false;
    }
    if (!lengthFitsHeader(path, why)) return false;

    // A crash leaves what it had not finished in a -wal or a hot -journal, which SQLite would
    // fold into the file on the first read. That happens on a private copy, so the file and its
    // companions stay as they are whatever the check finds; a file without them is read as it
    // stands, with nothing written or created beside it.
    const QString wal = path + QStringLiteral("-wal");
    const QString journal = path + QStringLiteral("-journal");
    QTemporaryDir scratch;
    QString target = path;
    int flags = SQLITE_OPEN_READONLY | SQLITE_OPEN_URI;
    if (hasContent(wal) || hasContent(journal)) {
        if (!scratch.isValid()) {
            why = QStringLiteral("нет места для временной копии при проверке");
            return false;
        }
        target = scratch.filePath(QStringLiteral("check.sqlite"));
        QString error;
        for (const auto& [from, to] :
             {std::pair{path, target}, std::pair{wal, target + QStringLiteral("-wal")},
              std::pair{journal, target + QStringLiteral("-journal")}}) {
            if (QFileInfo::exists(from) && !copyFileWhole(from, to, &error)) {
                why = QStringLiteral("не удалось проверить файл: %1").arg(error);
                return false;
            }
        }
        flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_URI;
    }
    QUrl uri = QUrl::fromLocalFile(target);
    uri.setScheme(QStringLiteral("file"));
    QString uriText = uri.toString(QUrl::FullyEncoded);
    if (target == path) uriText += QStringLiteral("?immutable=1");
    sqlite3* h = nullptr;
    const int rc = sqlite3_open_v2(uriText.toUtf8().constData(), &h, flags, nullptr);
    const auto closeHandle = qScopeGuard([h] { sqlite3_close(h); });
    if (rc != SQLITE_OK) {
        why = reasonOf(h, rc);
        return false;
    }
    return checkTables(h, def, why) && checkIntact(h, full, why);
}

// Something stands at path: a file, or a link even when its target is missing.
bool fileOrLinkAt(const QString& path) {
    struct stat st {};
    return ::lstat(QFile::encodeName(path).constData(), &st) == 0;
}

// A database path that is a symbolic link (a log kept on a stick) is followed; a link whose
// target is missing (the stick not plugged in) or that loops stops the start, for a new empty
// log put in its place would hide the operator's own.
bool followDatabaseLink(const QString& path, QString& resolved, QString& error) {
    resolved = path;
    struct stat st {};
    if (::lstat(QFile::encodeName(path).constData(), &st) != 0 || !S_ISLNK(st.st_mode)) return true;
    const QString target = QFileInfo(path).symLinkTarget();
    char buf[PATH_MAX];
    if (::realpath(QFile::encodeName(path).constData(), buf)) {
        resolved = QFile::decodeName(buf);
        return true;
    }
    const QString why = errno == ELOOP
                            ? QStringLiteral("ссылки ведут по кругу")
                            : QStringLiteral("такого файла нет (диск или носитель не подключён?)");
    error = QStringLiteral("Файл базы данных «%1» — ссылка на «%2»: %3.\n"
                           "Программа не запущена; ничего не изменено.")
                .arg(QDir::toNativeSeparators(path), QDir::toNativeSeparators(target), why);
    return false;
}

QString fileStamp(const QString& path) {
    struct stat st {};
    if (::stat(QFile::encodeName(path).constData(), &st) != 0) return {};
    return QStringLiteral("%1 %2.%3 %4 %5")
        .arg(qint64(st.st_size))
        .arg(qint64(st.st_mtim.tv_sec))
        .arg(qint64(st.st_mtim.tv_nsec))
        .arg(quint64(st.st_dev))
        .arg(quint64(st.st_ino));
}

bool noSpaceLeft(const QString& folder) {
    struct statvfs vfs {};
    if (::statvfs(QFile::encodeName(folder).constData(), &vfs) != 0) return false;
    // The log's shared-memory file alone takes 32 KiB; a WAL grows by a page per QSO.
    constexpr quint64 kNeeded = 256 * 1024;
    return quint64(vfs.f_bavail) * vfs.f_frsize < kNeeded;
}

} // namespace hfc
