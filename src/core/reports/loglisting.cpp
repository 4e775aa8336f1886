#include "contests/contestdef.h"
#include "reports/reporttext.h"
#include "reports/writers.h"
#include "text/columns.h"
#include "text/dates.h"

namespace hfc {

namespace {

const QLatin1String kBlank(" ");

// Column 10: the second multiplier, and the second count after three blanks when there is one.
// The column keeps six characters, so a long second multiplier pushes the count out.
QString zoneColumn(const LogRow& r) {
    const QString value =
        leadingNumber(r.point2) > 0 ? r.ps + QLatin1String("   ") + r.point2 : r.ps;
    return padCut(value, 10, 6);
}

} // namespace

QByteArray logListing(const QString& contestcode, const QList<LogRow>& rowsInLogOrder) {
    ReportText out;
    if (contests::def(contestcode).russianListing)
        out.line(QStringLiteral("   DATE    UTC  MHZ  CALL         Передан        Пренятый      "
                                "Зоны  Корр Связи "));
    else
        out.line(QStringLiteral("   DATE    UTC  MHZ  CALL         RST SEND        RST RECEIVE   "
                                "   DXCC  ZONE POINTS "));

    // Each column is its value with a run of blanks appended, cut to a width; where the run is
    // shorter than the width an empty value leaves the column narrower and the line shifts left.
    for (const LogRow& r : rowsInLogOrder) {
        if (r.ccall.isEmpty()) continue;
        out << formatDdate(r.ddate, QStringLiteral("yyyy-MM-dd")) + kBlank;
        out << formatTtimeHHMM(r.ttime) + kBlank;
        out << padCut(r.bband, 4, 4) + kBlank;
        out << padCut(r.ccall, 13, 13);
        out << padCut(r.rsts1, 3, 4);
        out << padCut(r.rsts2, 19, 13);
        out << padCut(r.rstr1, 5, 4);
        out << padCut(r.rstr2, 17, 13);
        out << padCut(r.mult, 10, 6);
        out << zoneColumn(r);
        out << padCut(kBlank + r.point, 4, 5);
        out.endLine();
    }
    return out.bytes();
}

} // namespace hfc
