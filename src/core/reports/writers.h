#pragma once
// The four report files of the report window, built in memory: whole files as Windows-1251
// bytes with CR LF line ends. The caller supplies the rows in log order (date value, time text,
// sent exchange text) and writes the bytes to the file it names.
#include "reports/logrow.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace hfc {

// Station data and score as the report window shows them.
struct StationBoxes {
    QString tcall, trezult, tname, tadres, tgor, tstr, tcont, tpod, Text4;
};

// The band table of the report window: rows 0..5 are 1,8 .. 28, row 6 is "sat".
struct SummaryBoxes {
    StationBoxes st;
    QString tq[7], tdx[7], tz[7], tp[7];
    QString tqtot, tdxtot, tztot, tptot, Text1, Text2, Text3;
};

// Cabrillo 2.0 log (file named after the own call, no extension). An empty log gives an empty
// file: no header and no END-OF-LOG line.
QByteArray cabrilloFile(const StationBoxes& st, const QList<LogRow>& rowsInLogOrder);

// ADIF 1.0 log, one QSO a line; rows without a worked call are left out.
QByteArray adifFile(const QList<LogRow>& rowsInLogOrder);

// Fixed-column ".LOG" listing; a contest whose definition asks for it gets the Russian heading.
QByteArray logListing(const QString& contestcode, const QList<LogRow>& rowsInLogOrder);

// ".SUM" summary sheet from the window's boxes; it does not read the log.
QByteArray summarySheet(const SummaryBoxes& boxes);

// Output folder with the separator the file names are joined with.
QString withTrailingSlash(const QString& folder);

} // namespace hfc
