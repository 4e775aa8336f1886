#pragma once
// What the report writers need from outside: the log in report order and a safe way to put
// a finished file on disk.
#include "log/logrow.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace hfc {

class Db;

// Every tbllog row in report order (by date value, then time text, then sent exchange); NULL fields
// come back empty. Throws DbError.
QList<LogRow> logInReportOrder(Db& contest);

// Every tbllog row in the order the rows were entered (the checks before a standard export
// look for QSOs entered out of time order). Throws DbError.
QList<LogRow> logInEntryOrder(Db& contest);

// Every row of the QTC table tbllogTemp as stored. Throws DbError.
QList<LogRow> qtcTableRows(Db& contest);

// Writes a whole file, replacing an existing one only once the new content is complete, so a
// full disk or a vanished folder never leaves a half-written report behind. False on failure,
// with error (if given) naming the file and the cause in Russian.
bool writeReportFile(const QString& path, const QByteArray& bytes, QString* error = nullptr);

} // namespace hfc
