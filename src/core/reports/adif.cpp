#include "reports/reporttext.h"
#include "reports/writers.h"
#include "text/dates.h"

namespace hfc {

namespace {

QString adifBandFor(const QString& bband) {
    static const struct {
        const char* bband;
        const char* adif;
    } kBands[] = {{"1,8", "160M"}, {"3,5", "80M"}, {"7", "40M"},
                  {"14", "20M"},   {"21", "15M"},  {"28", "10M"}};
    for (const auto& b : kBands)
        if (bband == QLatin1String(b.bband)) return QLatin1String(b.adif);
    return {};
}

QString tag(const char* name, const QString& value) {
    return QLatin1Char('<') + QLatin1String(name) + QLatin1Char(':') +
           QString::number(value.size()) + QLatin1Char('>') + value;
}

} // namespace

QByteArray adifFile(const QList<LogRow>& rowsInLogOrder) {
    ReportText out;
    out.line(QStringLiteral("<adif_ver:4>1.0<eoh>"));
    // A band outside the table repeats the band of the last QSO written before it.
    QString adifband;
    for (const LogRow& r : rowsInLogOrder) {
        if (r.ccall.isEmpty()) continue;
        const QString mapped = adifBandFor(r.bband);
        if (!mapped.isEmpty()) adifband = mapped;
        out << tag("call", r.ccall);
        out << QStringLiteral(" ") + tag("rst_sent", r.rsts);
        out << QStringLiteral(" ") + tag("rst_rcvd", r.rstr);
        out << QStringLiteral(" ") + tag("mode", r.ps1);
        out << QStringLiteral(" ") + tag("band", adifband);
        out << QStringLiteral(" <qso_date:8:d>") + formatDdate(r.ddate, QStringLiteral("yyyyMMdd"));
        out << QStringLiteral(" <time_on:4>") + formatTtimeHHMM(r.ttime);
        out << QStringLiteral("<eor>");
        out.endLine();
    }
    return out.bytes();
}

} // namespace hfc
