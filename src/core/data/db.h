#pragma once
// A small RAII layer over the SQLite C API. Statements are prepared once and kept by their SQL
// text, so the per-keystroke queries never re-parse SQL. Every value goes in as a bound parameter.
#include <QString>
#include <QStringList>
#include <memory>
#include <stdexcept>
#include <unordered_map>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace hfc {

class DbError : public std::runtime_error {
  public:
    explicit DbError(const std::string& what, int code = 0, const QString& file = {})
        : std::runtime_error(what), code_(code), file_(file) {}
    int code() const { return code_; }            // SQLite's primary result code, 0 if none
    const QString& file() const { return file_; } // the database file, if known

  private:
    int code_;
    QString file_;
};

// Why a database operation failed, in Russian, for the operator: the common causes (read-only
// file, full disk, damaged file, file held by another program) in words, anything else with
// SQLite's own text. dbErrorMessage adds the file name.
QString dbErrorReason(const DbError& e);
QString dbErrorMessage(const DbError& e);

class Stmt {
  public:
    Stmt(sqlite3* db, sqlite3_stmt* st) : db_(db), st_(st) {}
    ~Stmt();
    Stmt(const Stmt&) = delete;
    Stmt& operator=(const Stmt&) = delete;

    Stmt& bind(int i, const QString& v); // 1-based
    Stmt& bindAll(const QStringList& values);
    bool step(); // true while a row is available
    QString text(int col) const;
    int columns() const;
    QString columnName(int col) const;
    void reset();

  private:
    sqlite3* db_;
    sqlite3_stmt* st_;
};

using Rows = std::vector<QStringList>;

class Db {
  public:
    Db() = default;
    ~Db();
    Db(const Db&) = delete;
    Db& operator=(const Db&) = delete;

    // Opens an existing file or creates it (create=true). Throws DbError.
    void open(const QString& path, bool create);
    void close();
    bool isOpen() const { return db_ != nullptr; }
    const QString& path() const { return path_; }

    void exec(const QString& sql);                                  // no parameters, no rows
    void run(const QString& sql, const QStringList& params = {});   // parameters, no rows
    Rows query(const QString& sql, const QStringList& params = {}); // all rows, all columns
    QStringList column(const QString& sql, const QStringList& params = {}); // first column
    QString scalar(const QString& sql, const QStringList& params = {});     // first cell or ""
    int count(const QString& sql, const QStringList& params = {});          // number of result rows
    bool exists(const QString& sql, const QStringList& params = {});        // at least one row
    QStringList columnNames(const QString& sql);

    // A kept, reset statement with its parameters bound.
    Stmt& prepared(const QString& sql, const QStringList& params = {});

    void begin() { exec(QStringLiteral("BEGIN")); }
    void commit() { exec(QStringLiteral("COMMIT")); }
    void rollback();
    sqlite3* handle() const { return db_; }

  private:
    sqlite3* db_ = nullptr;
    QString path_;
    std::unordered_map<QString, std::unique_ptr<Stmt>> cache_;
};

} // namespace hfc
