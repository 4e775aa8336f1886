#include "data/db.h"

#include "text/dates.h"

#include <sqlite3.h>

namespace hfc {

namespace {

QString fileOf(sqlite3* db) {
    const char* f = db ? sqlite3_db_filename(db, "main") : nullptr;
    return f ? QString::fromUtf8(f) : QString();
}

[[noreturn]] void fail(sqlite3* db, const QString& what) {
    throw DbError(
        (what + QStringLiteral(": ") + QString::fromUtf8(sqlite3_errmsg(db))).toStdString(),
        sqlite3_errcode(db) & 0xff, fileOf(db));
}

int digit(char c) {
    return c >= '0' && c <= '9' ? c - '0' : -1;
}

// The usual "dd.mm.yy" read straight from the bytes into "yyyy-mm-dd"; false for anything else
// (other widths, four-digit years, no such day), which then takes the general parser.
bool quickSortKey(const char* t, int n, char out[10]) {
    if (n != 8 || t[2] != '.' || t[5] != '.') return false;
    int v[6];
    for (int i = 0, j = 0; i < 8; ++i) {
        if (i == 2 || i == 5) continue;
        if ((v[j++] = digit(t[i])) < 0) return false;
    }
    const int d = v[0] * 10 + v[1], m = v[2] * 10 + v[3], yy = v[4] * 10 + v[5];
    const int y = yy + (yy < 30 ? 2000 : 1900);
    static const int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (m < 1 || m > 12 || d < 1) return false;
    const bool leap = (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
    if (d > days[m - 1] + (m == 2 && leap)) return false;
    out[0] = char('0' + y / 1000);
    out[1] = char('0' + y / 100 % 10);
    out[2] = char('0' + y / 10 % 10);
    out[3] = char('0' + y % 10);
    out[4] = '-';
    out[5] = t[3];
    out[6] = t[4];
    out[7] = '-';
    out[8] = t[0];
    out[9] = t[1];
    return true;
}

// cdate(ddate): the calendar value of a stored "dd.mm.yy" date, so that logs sort by date. It
// runs once per row of every sorted report, so the common form is read without Qt.
void cdateFn(sqlite3_context* ctx, int, sqlite3_value** argv) {
    const auto* t = reinterpret_cast<const char*>(sqlite3_value_text(argv[0]));
    const int n = sqlite3_value_bytes(argv[0]);
    char quick[10];
    if (t && quickSortKey(t, n, quick)) {
        sqlite3_result_text(ctx, quick, 10, SQLITE_TRANSIENT);
        return;
    }
    const QByteArray key = ddateSortKey(t ? QString::fromUtf8(t, n) : QString()).toUtf8();
    sqlite3_result_text(ctx, key.constData(), int(key.size()), SQLITE_TRANSIENT);
}

} // namespace

Stmt::~Stmt() {
    sqlite3_finalize(st_);
}

Stmt& Stmt::bind(int i, const QString& v) {
    const QByteArray u = v.toUtf8();
    if (sqlite3_bind_text(st_, i, u.constData(), int(u.size()), SQLITE_TRANSIENT) != SQLITE_OK)
        fail(db_, QStringLiteral("bind"));
    return *this;
}

Stmt& Stmt::bindAll(const QStringList& values) {
    for (int i = 0; i < values.size(); ++i) bind(i + 1, values[i]);
    return *this;
}

bool Stmt::step() {
    const int rc = sqlite3_step(st_);
    if (rc == SQLITE_ROW) return true;
    if (rc == SQLITE_DONE) return false;
    const QString sql = QString::fromUtf8(sqlite3_sql(st_));
    sqlite3_reset(st_);
    fail(db_, sql);
}

QString Stmt::text(int col) const {
    const auto* t = reinterpret_cast<const char*>(sqlite3_column_text(st_, col));
    return t ? QString::fromUtf8(t, sqlite3_column_bytes(st_, col)) : QString();
}

int Stmt::columns() const {
    return sqlite3_column_count(st_);
}

QString Stmt::columnName(int col) const {
    return QString::fromUtf8(sqlite3_column_name(st_, col));
}

void Stmt::reset() {
    sqlite3_reset(st_);
    sqlite3_clear_bindings(st_);
}

Db::~Db() {
    close();
}

void Db::open(const QString& path, bool create) {
    close();
    const int flags = SQLITE_OPEN_READWRITE | (create ? SQLITE_OPEN_CREATE : 0);
    const int rc = sqlite3_open_v2(path.toUtf8().constData(), &db_, flags, nullptr);
    if (rc != SQLITE_OK) {
        const QString msg = db_ ? QString::fromUtf8(sqlite3_errmsg(db_)) : QStringLiteral("open");
        sqlite3_close(db_);
        db_ = nullptr;
        throw DbError(msg.toStdString(), rc & 0xff, path);
    }
    path_ = path;
    sqlite3_busy_timeout(db_, 5000);
    sqlite3_create_function(db_, "cdate", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, cdateFn,
                            nullptr, nullptr);
}

void Db::close() {
    cache_.clear();
    if (db_) sqlite3_close(db_);
    db_ = nullptr;
}

void Db::exec(const QString& sql) {
    char* err = nullptr;
    const int rc = sqlite3_exec(db_, sql.toUtf8().constData(), nullptr, nullptr, &err);
    if (rc != SQLITE_OK) {
        const QString msg = QString::fromUtf8(err ? err : "exec");
        sqlite3_free(err);
        throw DbError((sql + QStringLiteral(": ") + msg).toStdString(), rc & 0xff, path_);
    }
}

Stmt& Db::prepared(const QString& sql, const QStringList& params) {
    // Found by the text as given: the UTF-8 copy is made only for a statement prepared anew.
    auto it = cache_.find(sql);
    if (it == cache_.end()) {
        const QByteArray utf8 = sql.toUtf8();
        sqlite3_stmt* st = nullptr;
        if (sqlite3_prepare_v3(db_, utf8.constData(), int(utf8.size()), SQLITE_PREPARE_PERSISTENT,
                               &st, nullptr) != SQLITE_OK)
            fail(db_, sql);
        it = cache_.emplace(sql, std::make_unique<Stmt>(db_, st)).first;
    }
    Stmt& s = *it->second;
    s.reset();
    s.bindAll(params);
    return s;
}

void Db::run(const QString& sql, const QStringList& params) {
    Stmt& s = prepared(sql, params);
    while (s.step()) {
    }
    s.reset();
}

Rows Db::query(const QString& sql, const QStringList& params) {
    Stmt& s = prepared(sql, params);
    Rows rows;
    const int n = s.columns();
    while (s.step()) {
        QStringList row;
        row.reserve(n);
        for (int c = 0; c < n; ++c) row << s.text(c);
        rows.push_back(std::move(row));
    }
    s.reset();
    return rows;
}

QStringList Db::column(const QString& sql, const QStringList& params) {
    Stmt& s = prepared(sql, params);
    QStringList out;
    while (s.step()) out << s.text(0);
    s.reset();
    return out;
}

QString Db::scalar(const QString& sql, const QStringList& params) {
    Stmt& s = prepared(sql, params);
    QString v = s.step() ? s.text(0) : QString();
    s.reset();
    return v;
}

int Db::count(const QString& sql, const QStringList& params) {
    Stmt& s = prepared(sql, params);
    int n = 0;
    while (s.step()) ++n;
    s.reset();
    return n;
}

bool Db::exists(const QString& sql, const QStringList& params) {
    Stmt& s = prepared(sql, params);
    const bool any = s.step();
    s.reset();
    return any;
}

QStringList Db::columnNames(const QString& sql) {
    Stmt& s = prepared(sql);
    QStringList names;
    for (int c = 0; c < s.columns(); ++c) names << s.columnName(c);
    s.reset();
    return names;
}

void Db::rollback() {
    if (db_ && !sqlite3_get_autocommit(db_)) exec(QStringLiteral("ROLLBACK"));
}

QString dbErrorReason(const DbError& e) {
    switch (e.code()) {
    case SQLITE_READONLY:
        return QStringLiteral("файл доступен только для чтения");
    case SQLITE_FULL:
        return QStringLiteral("на диске нет места");
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return QStringLiteral("файл повреждён или это не база данных SQLite");
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return QStringLiteral("файл занят другой программой");
    case SQLITE_CANTOPEN:
        return QStringLiteral("файл не открывается: его нет или нет доступа к папке");
    case SQLITE_IOERR:
        return QStringLiteral("ошибка чтения или записи на диске");
    case SQLITE_PERM:
    case SQLITE_AUTH:
        return QStringLiteral("нет доступа к файлу");
    default:
        return QStringLiteral("ошибка SQLite: ") + QString::fromUtf8(e.what());
    }
}

QString dbErrorMessage(const DbError& e) {
    const QString file = e.file().isEmpty() ? QStringLiteral("?") : e.file();
    return QStringLiteral("Ошибка базы данных «%1»: %2.").arg(file, dbErrorReason(e));
}

} // namespace hfc
