#include "data/db.h"

#include "text/dates.h"

#include <sqlite3.h>

namespace hfc {

namespace {

[[noreturn]] void fail(sqlite3* db, const QString& what) {
    throw DbError(
        (what + QStringLiteral(": ") + QString::fromUtf8(sqlite3_errmsg(db))).toStdString());
}

// cdate(ddate): the calendar value of a stored "dd.mm.yy" date, so that logs sort by date.
void cdateFn(sqlite3_context* ctx, int, sqlite3_value** argv) {
    const auto* t = reinterpret_cast<const char*>(sqlite3_value_text(argv[0]));
    const QByteArray key = ddateSortKey(t ? QString::fromUtf8(t) : QString()).toUtf8();
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
    if (sqlite3_open_v2(path.toUtf8().constData(), &db_, flags, nullptr) != SQLITE_OK) {
        const QString msg = db_ ? QString::fromUtf8(sqlite3_errmsg(db_)) : QStringLiteral("open");
        sqlite3_close(db_);
        db_ = nullptr;
        throw DbError(msg.toStdString());
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
    if (sqlite3_exec(db_, sql.toUtf8().constData(), nullptr, nullptr, &err) != SQLITE_OK) {
        const QString msg = QString::fromUtf8(err ? err : "exec");
        sqlite3_free(err);
        throw DbError((sql + QStringLiteral(": ") + msg).toStdString());
    }
}

Stmt& Db::prepared(const QString& sql, const QStringList& params) {
    const std::string key = sql.toStdString();
    auto it = cache_.find(key);
    if (it == cache_.end()) {
        sqlite3_stmt* st = nullptr;
        if (sqlite3_prepare_v3(db_, key.c_str(), int(key.size()), SQLITE_PREPARE_PERSISTENT, &st,
                               nullptr) != SQLITE_OK)
            fail(db_, sql);
        it = cache_.emplace(key, std::make_unique<Stmt>(db_, st)).first;
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

QString globPrefix(const QString& prefix) {
    QString out;
    out.reserve(prefix.size() + 2);
    for (const QChar c : prefix) {
        if (c == QLatin1Char('*') || c == QLatin1Char('?') || c == QLatin1Char('['))
            out += QLatin1Char('[') + c + QLatin1Char(']');
        else
            out += c;
    }
    out += QLatin1Char('*');
    return out;
}

} // namespace hfc
