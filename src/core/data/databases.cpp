#include "data/databases.h"

#include "data/csv.h"
#include "data/schema.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <QSet>
#include <cstdio>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

static void initSeedResource() {
    Q_INIT_RESOURCE(seed);
}

namespace hfc {

namespace {

QString seedText(const QString& table) {
    QFile f(QStringLiteral(":/seed/%1.csv").arg(table));
    if (!f.open(QIODevice::ReadOnly)) return {};
    return QString::fromUtf8(f.readAll());
}

// Fills a new table from its seed CSV (first line names the columns) and gives the one-row
// tables their starting row.
void seedTable(Db& db, const TableDef& t) {
    if (t.name == QLatin1String("tbltit")) {
        db.run(QStringLiteral("INSERT INTO tbltit VALUES ('','','','','','','')"));
        return;
    }
    if (t.name == QLatin1String("rezult")) {
        QStringList zeros;
        for (int i = 0; i < t.columns.size(); ++i) zeros << QStringLiteral("'0'");
        db.run(QStringLiteral("INSERT INTO rezult VALUES (%1)").arg(zeros.join(',')));
        return;
    }
    const QString text = seedText(t.name);
    if (text.isEmpty()) return;
    const auto rows = parseCsv(text);
    if (rows.empty()) return;
    const QStringList& header = rows.front();
    QStringList marks;
    for (int i = 1; i <= header.size(); ++i) marks << QStringLiteral("?%1").arg(i);
    const QString sql = QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                            .arg(t.name, header.join(','), marks.join(','));
    for (size_t r = 1; r < rows.size(); ++r) {
        QStringList vals = rows[r];
        while (vals.size() < header.size()) vals << QString();
        vals = vals.mid(0, header.size());
        db.run(sql, vals);
    }
}

QString unusableMessage(const QString& path, const QString& why) {
    return QStringLiteral("Файл базы данных «%1» не может быть открыт: %2.\n"
                          "Программа не запущена; файл оставлен без изменений.")
        .arg(QDir::toNativeSeparators(path), why);
}

const QString& damaged() {
    static const QString why = QStringLiteral("это не база данных SQLite или файл повреждён");
    return why;
}

// Checks an existing file before the program uses it: it must be an SQLite database holding
// every table with every column, and intact, so that nothing is written into a file that is not
// ours or is damaged. Nothing is written here; opening read-write only lets SQLite finish an
// interrupted write (a hot journal) that a read-only connection could not.
bool checkExisting(const QString& path, const DbFileDef& def, QString& why) {
    if (QFileInfo(path).size() == 0) {
        why = QStringLiteral("файл пуст");
        return false;
    }
    const QByteArray p = QFile::encodeName(path);
    // The log must take every QSO; the reference tables are read far more than written, and a
    // write into a read-only one is reported when it happens.
    if (def.key == QLatin1String("contest") && ::access(p.constData(), W_OK) != 0) {
        why = QStringLiteral("файл доступен только для чтения, журнал в него не записать");
        return false;
    }
    sqlite3* h = nullptr;
    if (sqlite3_open_v2(p.constData(), &h, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) {
        sqlite3_close(h);
        h = nullptr;
        if (sqlite3_open_v2(p.constData(), &h, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK) {
            why = QStringLiteral("файл не открывается");
            sqlite3_close(h);
            return false;
        }
    }
    const auto closeHandle = qScopeGuard([h] { sqlite3_close(h); });
    for (const TableDef& t : def.tables) {
        const QByteArray sql = QStringLiteral("PRAGMA table_info(%1)").arg(t.name).toUtf8();
        sqlite3_stmt* st = nullptr;
        if (sqlite3_prepare_v2(h, sql.constData(), -1, &st, nullptr) != SQLITE_OK) {
            why = damaged();
            return false;
        }
        QSet<QString> have;
        int rc;
        while ((rc = sqlite3_step(st)) == SQLITE_ROW)
            have.insert(QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(st, 1)))
                            .toLower());
        sqlite3_finalize(st);
        if (rc != SQLITE_DONE) {
            why = damaged();
            return false;
        }
        if (have.isEmpty()) {
            why = QStringLiteral("в ней нет таблицы %1").arg(t.name);
            return false;
        }
        for (const QString& c : t.columns) {
            if (!have.contains(c.toLower()) && !t.added.contains(c)) {
                why = QStringLiteral("в таблице %1 нет поля %2").arg(t.name, c);
                return false;
            }
        }
    }
    // Every page read once: a damaged page is found now, not halfway through a contest.
    sqlite3_stmt* st = nullptr;
    const bool intact =
        sqlite3_prepare_v2(h, "PRAGMA quick_check(1)", -1, &st, nullptr) == SQLITE_OK &&
        sqlite3_step(st) == SQLITE_ROW &&
        qstrcmp(reinterpret_cast<const char*>(sqlite3_column_text(st, 0)), "ok") == 0;
    sqlite3_finalize(st);
    if (!intact) {
        why = QStringLiteral("файл повреждён (проверка целостности не пройдена)");
        return false;
    }
    return true;
}

// A file written before a column came gets it, empty in its rows; the rest stays as it was.
// One transaction: the file has all the new columns or none.
void upgradeTables(Db& db, const DbFileDef& def) {
    QStringList alters;
    for (const TableDef& t : def.tables) {
        if (t.added.isEmpty()) continue;
        const QStringList have =
            db.column(QStringLiteral("SELECT lower(name) FROM pragma_table_info(?1)"), {t.name});
        for (const QString& c : t.added)
            if (!have.contains(c.toLower()))
                alters << QStringLiteral("ALTER TABLE %1 ADD COLUMN %2 TEXT").arg(t.name, c);
    }
    if (alters.isEmpty()) return;
    db.begin();
    try {
        for (const QString& a : alters) db.exec(a);
        db.commit();
    } catch (const DbError&) {
        db.rollback();
        throw;
    }
}

// The files a database at path may leave beside it.
void removeWithCompanions(const QString& path) {
    for (const char* suffix : {"", "-journal", "-wal", "-shm"})
        QFile::remove(path + QLatin1String(suffix));
}

// A missing file is built and seeded under a working name and renamed into place only when
// complete, so a start cut short (a crash, a full disk) never leaves a half-seeded file that
// the next start would refuse.
bool createSeeded(const QString& path, const DbFileDef& def, Db& db, QString& error) {
    const QString work = path + QStringLiteral(".new");
    removeWithCompanions(work);
    try {
        db.open(work, true);
        db.begin();
        for (const TableDef& t : def.tables) {
            db.exec(createTableSql(t));
            seedTable(db, t);
        }
        db.commit();
        db.close();
    } catch (const DbError& e) {
        db.close();
        removeWithCompanions(work);
        error =
            QStringLiteral("Не удалось создать файл базы данных «%1»: %2.\nПрограмма не запущена.")
                .arg(QDir::toNativeSeparators(path), dbErrorReason(e));
        return false;
    }
    // Never over a file that appeared meanwhile; the rename itself is atomic.
    if (QFileInfo::exists(path) || std::rename(QFile::encodeName(work).constData(),
                                               QFile::encodeName(path).constData()) != 0) {
        removeWithCompanions(work);
        error = QStringLiteral("Не удалось создать файл базы данных «%1».\nПрограмма не запущена.")
                    .arg(QDir::toNativeSeparators(path));
        return false;
    }
    return true;
}

std::pair<quint64, quint64> fileId(const QString& path) {
    struct stat st {};
    if (::stat(QFile::encodeName(path).constData(), &st) != 0) return {0, 0};
    return {quint64(st.st_dev), quint64(st.st_ino)};
}

} // namespace

QString defaultDataDir() {
    const QString env = qEnvironmentVariable("HFCONTEST_DIR");
    if (!env.isEmpty()) return env;
    QString xdg = qEnvironmentVariable("XDG_DATA_HOME");
    if (xdg.isEmpty()) xdg = QDir::homePath() + QStringLiteral("/.local/share");
    return xdg + QStringLiteral("/hfcontest");
}

Db* Databases::byKey(const QString& key) {
    if (key == QLatin1String("contest")) return &contest;
    if (key == QLatin1String("dxcc")) return &dxcc;
    if (key == QLatin1String("rus")) return &rus;
    if (key == QLatin1String("help")) return &help;
    if (key == QLatin1String("iaru")) return &iaru;
    return nullptr;
}

QString Databases::filePath(const QString& fileName) const {
    return dir_ + '/' + fileName;
}

bool Databases::stillInPlace(const Db& db) const {
    const auto id = fileIds_.value(&db);
    return db.isOpen() && id.second != 0 && fileId(db.path()) == id;
}

bool Databases::open(const QString& dir, QString& error) {
    initSeedResource();
    dir_ = dir;
    if (!QDir().mkpath(dir)) {
        error = QStringLiteral("Не удалось создать папку данных «%1».").arg(dir);
        return false;
    }
    // SQLite keeps its journal and WAL files beside the databases: without the right to write
    // into the folder not one QSO could be stored.
    if (::access(QFile::encodeName(dir).constData(), W_OK | X_OK) != 0) {
        error = QStringLiteral("Нет права записи в папку данных «%1»: журнал не может быть "
                               "сохранён.\nПрограмма не запущена.")
                    .arg(QDir::toNativeSeparators(dir));
        return false;
    }
    // Check every existing file before touching any, so a bad file stops the start cleanly.
    for (const DbFileDef& def : databaseFiles()) {
        const QString path = filePath(def.file);
        if (!QFileInfo::exists(path)) continue;
        QString why;
        if (!checkExisting(path, def, why)) {
            error = unusableMessage(path, why);
            return false;
        }
    }
    for (const DbFileDef& def : databaseFiles()) {
        const QString path = filePath(def.file);
        Db& db = *byKey(def.key);
        if (!QFileInfo::exists(path) && !createSeeded(path, def, db, error)) return false;
        try {
            db.open(path, false);
            if (def.key == QLatin1String("contest")) {
                // A logged QSO must survive a crash or a power cut.
                db.exec(QStringLiteral("PRAGMA journal_mode=WAL"));
                db.exec(QStringLiteral("PRAGMA synchronous=FULL"));
            }
            upgradeTables(db, def);
            for (const TableDef& t : def.tables)
                for (const QString& ix : t.indexes) db.exec(ix);
            fileIds_.insert(&db, fileId(path));
        } catch (const DbError& e) {
            db.close();
            error = unusableMessage(path, dbErrorReason(e));
            return false;
        }
    }
    return true;
}

} // namespace hfc
