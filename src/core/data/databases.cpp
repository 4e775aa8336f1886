#include "data/databases.h"

#include "data/csv.h"
#include "data/dbcheck.h"
#include "data/safefile.h"
#include "data/schema.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <QSet>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
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
    // Never over a file (or a link) that appeared meanwhile; the rename itself is atomic.
    if (fileOrLinkAt(path) || std::rename(QFile::encodeName(work).constData(),
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

Databases::~Databases() {
    // The files are closed (the log's WAL folded in) before another program may take the folder.
    for (const DbFileDef& def : databaseFiles()) byKey(def.key)->close();
    lock_.release();
}

QString Databases::pathOf(const QString& key) const {
    return paths_.value(key);
}

QString Databases::checkMarksPath() const {
    return dir_ + QStringLiteral("/.hfcontest-checked");
}

// "file stamp" lines: each file as it stood after its last full check.
QHash<QString, QString> Databases::readCheckMarks() const {
    QHash<QString, QString> marks;
    QFile f(checkMarksPath());
    if (!f.open(QIODevice::ReadOnly)) return marks;
    for (const QByteArray& line : f.readAll().split('\n')) {
        const qsizetype space = line.indexOf(' ');
        if (space > 0) marks.insert(QString::fromUtf8(line.left(space)), line.mid(space + 1));
    }
    return marks;
}

bool Databases::openOne(const DbFileDef& def, QString& error) {
    const QString path = paths_.value(def.key);
    Db& db = *byKey(def.key);
    if (!fileOrLinkAt(path) && !createSeeded(path, def, db, error)) return false;
    try {
        db.open(path, false);
        if (def.key == QLatin1String("contest")) {
            // A logged QSO must survive a crash or a power cut.
            db.exec(QStringLiteral("PRAGMA journal_mode=WAL"));
            db.exec(QStringLiteral("PRAGMA synchronous=FULL"));
        }
        for (const TableDef& t : def.tables)
            for (const QString& ix : t.indexes) db.exec(ix);
        fileIds_.insert(&db, fileId(path));
    } catch (const DbError& e) {
        db.close();
        error = unusableMessage(path, noSpaceLeft(dir_) ? QStringLiteral("на диске нет места")
                                                        : dbErrorReason(e));
        return false;
    }
    return true;
}

bool Databases::open(const QString& dir, QString& error, bool holdFolder) {
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
    // A full disk is named as such: a log said to be damaged might be deleted by its owner.
    if (noSpaceLeft(dir)) {
        error = QStringLiteral("На диске папки данных «%1» нет места: журнал не может быть "
                               "сохранён.\nОсвободите место; программа не запущена, файлы не "
                               "изменены.")
                    .arg(QDir::toNativeSeparators(dir));
        return false;
    }
    if (holdFolder && !lock_.take(dir, error)) return false;
    for (const DbFileDef& def : databaseFiles()) {
        QString resolved;
        if (!followDatabaseLink(filePath(def.file), resolved, error)) return false;
        paths_.insert(def.key, resolved);
    }
    // Check every existing file before touching any, so a bad file stops the start cleanly. A
    // file changed since its last full check has its indexes compared with its tables too: a
    // damaged index would make dupes pass unseen.
    QHash<QString, QString> marks = readCheckMarks();
    bool marksChanged = false;
    for (const DbFileDef& def : databaseFiles()) {
        const QString path = paths_.value(def.key);
        if (!fileOrLinkAt(path)) {
            marks.remove(def.file);
            marksChanged = true;
            continue;
        }
        const QString stamp = fileStamp(path);
        const bool full = marks.value(def.file) != stamp;
        QString why;
        // The log must take every QSO; the reference tables are read far more than written,
        // and a write into a read-only one is reported when it happens.
        if (def.key == QLatin1String("contest") &&
            ::access(QFile::encodeName(path).constData(), W_OK) != 0)
            why = QStringLiteral("файл доступен только для чтения, журнал в него не записать");
        if (!why.isEmpty() || !checkDatabaseFile(path, def, full, why)) {
            error = unusableMessage(path, why);
            return false;
        }
        if (full) {
            marks.insert(def.file, stamp);
            marksChanged = true;
        }
    }
    for (const DbFileDef& def : databaseFiles()) {
        const bool created = !fileOrLinkAt(paths_.value(def.key));
        if (!openOne(def, error)) return false;
        if (created) {
            marks.insert(def.file, fileStamp(paths_.value(def.key)));
            marksChanged = true;
        }
    }
    if (marksChanged) {
        QByteArray text;
        for (auto it = marks.cbegin(); it != marks.cend(); ++it)
            text += it.key().toUtf8() + ' ' + it.value().toUtf8() + '\n';
        // Not written (a full disk): the next start checks fully again, nothing worse.
        writeFileWhole(checkMarksPath(), text);
    }
    return true;
}

} // namespace hfc
