#pragma once
// The tables of the five database files and their columns. Every column is TEXT: the log keeps
// what the operator typed, and numbers are stored as their text.
#include <QString>
#include <QStringList>
#include <vector>

namespace hfc {

struct TableDef {
    QString name;
    QStringList columns;
    QStringList indexes; // full CREATE INDEX statements
    // Columns that came later: a file written before them lacks them and gets them added in
    // place when it is opened (they stay empty in the old rows). Also listed in columns.
    QStringList added = {};
};

struct DbFileDef {
    QString file; // file name inside the data folder
    QString key;  // short name used by the script driver: contest, dxcc, rus, help, iaru
    std::vector<TableDef> tables;
};

// The call of a placeholder row in tbllog: one double quote. Such a row is never a QSO.
inline constexpr QLatin1StringView kPlaceholderCall{"\""};

const std::vector<DbFileDef>& databaseFiles();
const QStringList& logColumns(); // the columns of tbllog, in order

QString createTableSql(const TableDef& t);

} // namespace hfc
