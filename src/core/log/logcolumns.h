#pragma once
// The columns of a log row, declared once: the table's schema, the row reader, the INSERT, the
// report readers and the log grid's headings are all made from this one list, so a column can
// never land in another column's field.
#include "log/logrow.h"

#include <QMap>
#include <QString>
#include <QStringList>
#include <vector>

namespace hfc {

class Stmt;

struct LogColumn {
    QString name;    // as in tbllog and tbllogTemp
    QString sqlType; // every column is TEXT: the log keeps what the operator typed
    QString heading; // the log grid's column heading
    QString LogRow::*field;
    bool added = false; // came later: an older file gets it added when opened
};

// Every column in table order.
const std::vector<LogColumn>& logRowColumns();
// The column of that name (case-insensitive), or null.
const LogColumn* logColumnNamed(const QString& name);

// "ccall, ddate, …": the select list every row reader uses, in table order.
const QString& logSelectList();
// A row from a statement that selected logSelectList() starting at column first.
LogRow logRowFrom(const Stmt& st, int first = 0);
// The row's values in table order, for an INSERT of every column.
QStringList logRowValues(const LogRow& r);
// A row from values by column name (the shared log's events carry rows so): other names are
// left out, columns not named are empty.
LogRow logRowFromFields(const QMap<QString, QString>& fields);
// The row's non-empty columns by name.
QMap<QString, QString> logRowFields(const LogRow& r);
// The log grid's columns, in its order.
const QStringList& logGridColumns();
// The headings of the named columns, in the order given.
QStringList logHeadings(const QStringList& names);

} // namespace hfc
