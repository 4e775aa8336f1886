#pragma once
// ADIF 3.1 log of the whole logbook (every contest), as other loggers import it: a header that
// names the program and the time of writing, one record a line, enumeration values for BAND,
// MODE and CONTEST_ID. ASCII only, so a field's length is its count of characters and bytes.
#include "log/logrow.h"
#include "reports/standard/programinfo.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>

namespace hfc {

// ADIF version the files declare.
inline constexpr char kAdifVersion[] = "3.1.4";

struct Adif3Options {
    QString stationCallsign; // STATION_CALLSIGN of every record; empty leaves it out
    QString operatorCall;    // OPERATOR of every record; empty leaves it out
    QDateTime createdUtc;    // CREATED_TIMESTAMP and the header line
    QString programVersion = QLatin1String(kProgramVersion);
};

// Records follow the given order; rows without a worked call are left out. Per record: CALL,
// QSO_DATE, TIME_ON, BAND, MODE (CW or SSB; a dupe by its reports), RST_SENT, RST_RCVD, STX/SRX
// for a numeric serial, STX_STRING/SRX_STRING for the whole exchange when it is more than a
// serial, CONTEST_ID from the row's contest code, STATION_CALLSIGN. A field with nothing to say
// is left out.
QByteArray adif3File(const Adif3Options& options, const QList<LogRow>& rows);

} // namespace hfc
