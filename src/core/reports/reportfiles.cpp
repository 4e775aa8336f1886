#include "reports/reportfiles.h"

#include "data/db.h"
#include "data/safefile.h"

namespace hfc {

// The LogRow fields in their order; every reader selects them so.
#define LOG_ROW_COLUMNS                                                                            \
    "SELECT ccall, ddate, ttime, bband, mode, rsts, rstr, rsts1, rsts2, rstr1, rstr2, mult, ps, "  \
    "point, point2, contr, PRF, QTH, ps1, ps2 "

const char* const kReportOrderSql =
    LOG_ROW_COLUMNS "FROM tbllog ORDER BY cdate(ddate), ttime, rsts2";

namespace {

QList<LogRow> readRows(Db& contest, const char* sql) {
    QList<LogRow> rows;
    Stmt& st = contest.prepared(QLatin1String(sql));
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

} // namespace

QList<LogRow> logInReportOrder(Db& contest) {
    return readRows(contest, kReportOrderSql);
}

QList<LogRow> logInEntryOrder(Db& contest) {
    return readRows(contest, LOG_ROW_COLUMNS "FROM tbllog ORDER BY rowid");
}

QList<LogRow> qtcTableRows(Db& contest) {
    return readRows(contest, LOG_ROW_COLUMNS "FROM tbllogTemp ORDER BY rowid");
}

#undef LOG_ROW_COLUMNS

// Not QSaveFile: its commit() does not report bytes that fail when the file is closed, so a
// small report on a full disk became an empty file said to be written.
bool writeReportFile(const QString& path, const QByteArray& bytes, QString* error) {
    return writeFileWhole(path, bytes, error);
}

} // namespace hfc
