#pragma once
// What a contest robot or another logger would reject or flag in the log, listed in the report
// window before a standard export is written. Writing stays possible after the list is seen.
#include "log/logrow.h"

#include <QList>
#include <QString>

namespace hfc {

struct LintIssue {
    enum class Kind {
        EmptySent,     // a box of the sent exchange is empty
        EmptyReceived, // a box of the received exchange is empty
        BadCallsign,   // characters outside A-Z, 0-9 and "/"
        OutOfOrder,    // logged after a QSO with a later time
        UnknownBand,   // not one of the six contest bands
        BadDateTime,   // date or time that is not one
        BadQtc,        // a QTC line that is not time, call and serial
    };
    Kind kind;
    int row;                     // index in the list that was checked
    QString ccall, ddate, ttime; // the QSO (or QTC) as stored
    QString message;             // Russian, beginning with the QSO: "30.11.02 12:05 DL1ABC: ..."
};

// Checks the rows in the order they were logged (QSOs of several contests may be mixed: the time
// order is checked within each contest). Rows without a worked call are not QSOs and are skipped.
QList<LintIssue> lintLog(const QList<LogRow>& rowsInEntryOrder);

// Checks the QTC lines of the QTC table (rows of the QTC frame; copies of log rows are skipped).
QList<LintIssue> lintQtcs(const QList<LogRow>& qtcRows);

} // namespace hfc
