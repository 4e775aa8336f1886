#include "reports/reportfiles.h"

#include "data/db.h"

#include <QSaveFile>

namespace hfc {

const char* const kReportOrderSql =
    "SELECT ccall, ddate, ttime, bband, mode, rsts, rstr, rsts1, rsts2, rstr1, rstr2, mult, ps, "
    "point, point2, contr, PRF, QTH, ps1, ps2 FROM tbllog ORDER BY cdate(ddate), ttime, rsts2";

QList<LogRow> logInReportOrder(Db& contest) {
    QList<LogRow> rows;
    Stmt& st = contest.prepared(QLatin1String(kReportOrderSql));
    while (st.step()) {
        LogRow r;
        QString* const fields[] = {&r.ccall, &r.ddate, &r.ttime, &r.bband, &r.mode,
                                   &r.rsts,  &r.rstr,  &r.rsts1, &r.rsts2, &r.rstr1,
                                   &r.rstr2, &r.mult,  &r.ps,    &r.point, &r.point2,
                                   &r.contr, &r.prf,   &r.qth,   &r.ps1,   &r.ps2};
        for (int c = 0; c < 20; ++c) *fields[c] = st.text(c);
        rows.append(std::move(r));
    }
    st.reset();
    return rows;
}

bool writeReportFile(const QString& path, const QByteArray& bytes) {
    QSaveFile f(path);
    if (!f.open(QIODevice::WriteOnly)) return false;
    if (f.write(bytes) != bytes.size()) {
        f.cancelWriting();
        return false;
    }
    return f.commit();
}

} // namespace hfc
