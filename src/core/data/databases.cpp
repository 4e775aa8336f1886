#include "data/databases.h"

#include "data/csv.h"
#include "data/schema.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <cstdio>
#include <sqlite3.h>

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

// Checks an existing file read-only: it must be an SQLite database holding every table with
// every column, so that nothing is written into a file that is not ours.
bool checkExisting(const QString& path, const DbFileDef& def, QString& why) {
    sqlite3* h = nullptr;
    const QByteArray p = path.toUtf8();
    if (sqlite3_open_v2(p.constData(), &h, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK) {
        why = QStringLiteral("файл не открывается");
        sqlite3_close(h);
        return false;
    }
    bool ok = true;
    for (const TableDef& t : def.tables) {
        const QByteArray sql = QStringLiteral("PRAGMA table_info(%1)").arg(t.name).toUtf8();
        sqlite3_stmt* st = nullptr;
        if (sqlite3_prepare_v2(h, sql.constData(), -1, &st, nullptr) != SQLITE_OK) {
            why = QStringLiteral("это не база данных SQLite или файл повреждён");
            ok = false;
            break;
        }
        QSet<QString> have;
        int rc;
        while ((rc = sqlite3_step(st)) == SQLITE_ROW)
            have.insert(QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(st, 1)))
                            .toLower());
        sqlite3_finalize(st);
        if (rc != SQLITE_DONE) {
            why = QStringLiteral("это не база данных SQLite или файл повреждён");
            ok = false;
            break;
        }
        if (have.isEmpty()) {
            why = QStringLiteral("в ней нет таблицы %1").arg(t.name);
            ok = false;
            break;
        }
        for (const QString& c : t.columns) {
            if (!have.contains(c.toLower())) {
                why = QStringLiteral("в таблице %1 нет поля %2").arg(t.name, c);
                ok = false;
                break;
            }
        }
        if (!ok) break;
    }
    sqlite3_close(h);
    return ok;
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
        error = QStringLiteral("Не удалось создать файл базы данных «%1»: %2.")
                    .arg(QDir::toNativeSeparators(path), QString::fromUtf8(e.what()));
        return false;
    }
    // rename() replaces nothing that appeared meanwhile only if we check; it is atomic on POSIX.
    if (QFileInfo::exists(path) ||
        std::rename(QFile::encodeName(work).constData(), QFile::encodeName(path).constData()) != 0) {
        removeWithCompanions(work);
        error = QStringLiteral("Не удалось создать файл базы данных «%1».")
                    .arg(QDir::toNativeSeparators(path));
        return false;
    }
    return true;
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

bool Databases::open(const QString& dir, QString& error) {
    initSeedResource();
    dir_ = dir;
    if (!QDir().mkpath(dir)) {
        error = QStringLiteral("Не удалось создать папку данных «%1».").arg(dir);
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
            for (const TableDef& t : def.tables)
                for (const QString& ix : t.indexes) db.exec(ix);
        } catch (const DbError& e) {
            db.close();
            error = unusableMessage(path, QString::fromUtf8(e.what()));
            return false;
        }
    }
    return true;
}

} // namespace hfc
