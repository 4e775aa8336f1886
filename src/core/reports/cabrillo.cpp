#include "reports/reporttext.h"
#include "reports/writers.h"
#include "text/columns.h"
#include "text/dates.h"

namespace hfc {

namespace {

const QLatin1String kBlank(" ");

// Lower band edge in kHz, five characters right-aligned, and a blank. Returns false for a band
// text of another length, whose line then repeats the previous piece.
bool frequencyPiece(const QString& b, QString& piece) {
    switch (b.size()) {
    case 1:
        piece = kBlank + b + QLatin1String("000 ");
        return true;
    case 2:
        piece = b + QLatin1String("000 ");
        return true;
    case 3:
        piece = kBlank + b.front() + b.back() + QLatin1String("00 ");
        return true;
    default:
        return false;
    }
}

} // namespace

QByteArray cabrilloFile(const StationBoxes& st, const QList<LogRow>& rowsInLogOrder) {
    ReportText out;
    if (rowsInLogOrder.isEmpty()) return out.bytes();

    // The contest, section, category and soapbox lines are fixed whatever contest was logged.
    out.line(QStringLiteral("START-OF-LOG: 2.0"));
    out.line(QStringLiteral("ARRL-SECTION: DX"));
    out.line(QStringLiteral("CONTEST: ARRL-DX-CW"));
    out.line(QStringLiteral("CALLSIGN: ") + st.tcall);
    out.line(QStringLiteral("CATEGORY: SINGLE-OP ALL LOW"));
    out.line(QStringLiteral("CLAIMED-SCORE: ") + st.trezult);
    out.line(QStringLiteral("OPERATORS: ") + st.tcall);
    out.line(QStringLiteral("NAME: ") + st.tname);
    out.line(QStringLiteral("ADDRESS: ") + st.tadres);
    out.line(QStringLiteral("ADDRESS: ") + st.tgor);
    out.line(QStringLiteral("ADDRESS: ") + st.tstr);
    out.line(QStringLiteral("CLUB: "));
    out.line(QStringLiteral("SOAPBOX: This contest was hard work."));

    const QString ownCall = padCut(st.tcall, 13) + kBlank;
    // One buffer holds each piece in turn; a band outside the six leaves in it the last piece of
    // the previous line, and that is what the frequency slot then shows.
    QString piece;
    for (const LogRow& r : rowsInLogOrder) {
        frequencyPiece(r.bband, piece);
        out << QStringLiteral("QSO: ") << piece;
        out << (r.ps1 == QLatin1String("SSB") ? QStringLiteral("PH") : r.ps1) + kBlank;
        out << formatDdate(r.ddate, QStringLiteral("yyyy-MM-dd")) + kBlank;
        out << formatTtimeHHMM(r.ttime) + kBlank;
        out << ownCall;
        out << padCut(r.rsts1, 3) + kBlank;
        out << padCut(r.rsts2, 6) + kBlank;
        out << padCut(r.ccall, 13) + kBlank;
        out << padCut(r.rstr1, 3) + kBlank;
        // Only three blanks go after the received exchange, so a short one stays short.
        piece = padCut(r.rstr2, 3, 6) + QLatin1String("  ");
        out << piece;
        out.endLine();
    }
    out.line(QStringLiteral("END-OF-LOG:"));
    return out.bytes();
}

} // namespace hfc
