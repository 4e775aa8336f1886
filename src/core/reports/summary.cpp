#include "reports/reporttext.h"
#include "reports/writers.h"
#include "text/columns.h"

namespace hfc {

namespace {

// Four five-character cells with nothing between them.
QString cells(const QString& q, const QString& dx, const QString& z, const QString& p) {
    return padCut(q, 5) + padCut(dx, 5) + padCut(z, 5) + padCut(p, 5);
}

} // namespace

QByteArray summarySheet(const SummaryBoxes& b) {
    const StationBoxes& st = b.st;
    ReportText out;
    out.line(QStringLiteral("CONTEST: ") + st.tcont);
    out.line(QStringLiteral("Date :") + st.Text4);
    out.line(QStringLiteral("CALLSIGN: ") + st.tcall);
    out.line(QStringLiteral("CATEGORY: ") + st.tpod);
    out.line(QStringLiteral(" "));
    out.line(QStringLiteral("NAME: ") + st.tname);
    out.line(QStringLiteral("ADDRESS: ") + st.tadres);
    out.line(QStringLiteral("ADDRESS: ") + st.tgor);
    out.line(QStringLiteral("ADDRESS: ") + st.tstr);
    out.line(QStringLiteral(" "));
    out.line(QStringLiteral("MHz QSOs DXCC Zone Points"));

    // The "sat" row (6) is not printed. The total label is two characters wider than the band
    // labels, so the total cells stand two columns to the right; the sheet has always looked so.
    static const char* const kLabels[6] = {"1,8 ", "3,5 ", "7   ", "14  ", "21  ", "28  "};
    for (int i = 0; i < 6; ++i)
        out.line(QLatin1String(kLabels[i]) + cells(b.tq[i], b.tdx[i], b.tz[i], b.tp[i]));
    out.line(QStringLiteral("Total ") + cells(b.tqtot, b.tdxtot, b.tztot, b.tptot));

    out.line(QStringLiteral("Rezult : (") + b.Text3 + QStringLiteral(" + ") + b.Text2 +
             QStringLiteral(") * ") + b.Text1 + QStringLiteral(" = ") + st.trezult);
    out.line(QStringLiteral("P.S."));
    return out.bytes();
}

} // namespace hfc
