#include "data/schema.h"

#include "log/logcolumns.h"

namespace hfc {

const QStringList& logColumns() {
    static const QStringList cols = [] {
        QStringList names;
        for (const LogColumn& c : logRowColumns()) names << c.name;
        return names;
    }();
    return cols;
}

const QStringList& logAddedColumns() {
    static const QStringList cols = [] {
        QStringList names;
        for (const LogColumn& c : logRowColumns())
            if (c.added) names << c.name;
        return names;
    }();
    return cols;
}

const std::vector<DbFileDef>& databaseFiles() {
    static const std::vector<DbFileDef> files = {
        {"dbcontest.sqlite",
         "contest",
         {{"tbllog",
           logColumns(),
           // The keystroke path searches by contest, band and the beginning of a call; recounts
           // and multiplier checks by contest with multiplier or prefix.
           {"CREATE INDEX IF NOT EXISTS ix_log_contest_band_call ON tbllog(ps2, bband, ccall)",
            "CREATE INDEX IF NOT EXISTS ix_log_contest_call ON tbllog(ps2, ccall)",
            "CREATE INDEX IF NOT EXISTS ix_log_contest_mult ON tbllog(ps2, mult)",
            "CREATE INDEX IF NOT EXISTS ix_log_contest_ps ON tbllog(ps2, ps)",
            // the band recount counts distinct multipliers per band from these alone
            "CREATE INDEX IF NOT EXISTS ix_log_contest_band_mult ON tbllog(ps2, bband, mult)",
            "CREATE INDEX IF NOT EXISTS ix_log_contest_band_ps ON tbllog(ps2, bband, ps)"},
           logAddedColumns()},
          {"tbllogTemp", logColumns(), {}, logAddedColumns()},
          {"tbltit",
           {"contest", "ccall", "podgrup", "nname", "ADRESSTRIT", "adregor", "adresstran"},
           {}},
          {"rezult",
           {"qsosat", "qso10", "qso15", "qso20", "qso40", "qso80",  "qso160", "mdsat", "md10",
            "md15",   "md20",  "md40",  "md80",  "md160", "mzsat",  "mz10",   "mz15",  "mz20",
            "mz40",   "mz80",  "mz160", "psat",  "p10",   "p15",    "p20",    "p40",   "p80",
            "p160",   "totq",  "totm1", "totm2", "totp",  "totrez", "ps1"},
           {}}}},
        {"dbdxcc1.sqlite",
         "dxcc",
         {{"tbldxcc",
           {"prf", "PREF", "strana", "kont", "iaru", "cq"},
           {"CREATE INDEX IF NOT EXISTS ix_dxcc_prf ON tbldxcc(prf)"}}}},
        {"dbrusdx.sqlite",
         "rus",
         {{"tblrus",
           {"pref", "kodsrr", "gorod", "kodcrk", "cq", "itu"},
           {"CREATE INDEX IF NOT EXISTS ix_rus_pref ON tblrus(pref)"}}}},
        {"dbhelp.sqlite",
         "help",
         {{"tblhelp", {"CONTEST", "TXTHELP", "rezgod", "rezmod", "rezul", "rezfile"}, {}}}},
        {"dbiaru.sqlite",
         "iaru",
         {{"tbllog1",
           {"ccall", "ddate", "ttime", "bband", "rstr", "rsts", "contr", "QTH", "PRF", "ps1"},
           {}}}},
    };
    return files;
}

QString createTableSql(const TableDef& t) {
    QStringList cols;
    const bool logTable = t.columns == logColumns();
    for (const QString& c : t.columns) {
        const LogColumn* lc = logTable ? logColumnNamed(c) : nullptr;
        cols << c + QLatin1Char(' ') + (lc ? lc->sqlType : QStringLiteral("TEXT"));
    }
    return QStringLiteral("CREATE TABLE %1 (%2)").arg(t.name, cols.join(QStringLiteral(", ")));
}

} // namespace hfc
