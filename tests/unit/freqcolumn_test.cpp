// The log's frequency column: an older log without it opens and is upgraded in place with its
// rows intact, and the standard files take the frequency only where it fits the logged band.
#include "data/databases.h"
#include "data/schema.h"
#include "reports/standard/adif3.h"
#include "reports/standard/cabrillo3.h"
#include "testfiles.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace hfc;

TEST(FreqColumn, OlderLogOpensAndGetsTheColumnWithItsRowsKept) {
    QTemporaryDir dir;
    {
        // A log as written before the column came: every table as it was, one QSO in it.
        Db old;
        old.open(dir.path() + "/dbcontest.sqlite", true);
        for (TableDef before : databaseFiles().front().tables) {
            before.columns.removeAll(QStringLiteral("freq"));
            old.exec(createTableSql(before));
        }
        ASSERT_EQ(old.column("SELECT name FROM pragma_table_info('tbllog')").size(),
                  logColumns().size() - 1);
        old.exec("INSERT INTO tbllog (ccall, bband, ps2, ps1) VALUES ('DL1ABC', '14', 'cqww', "
                 "'CW')");
        old.exec("INSERT INTO tbltit (ccall) VALUES ('UA3ABC')");
    }
    Databases db;
    QString error;
    ASSERT_TRUE(db.open(dir.path(), error)) << error.toStdString();
    EXPECT_EQ(db.contest.column("SELECT name FROM pragma_table_info('tbllog')"), logColumns());
    EXPECT_EQ(db.contest.column("SELECT name FROM pragma_table_info('tbllogTemp')"), logColumns());
    EXPECT_EQ(db.contest.query("SELECT ccall, bband, freq FROM tbllog"),
              (Rows{{"DL1ABC", "14", ""}}));
    EXPECT_EQ(db.contest.scalar("SELECT ccall FROM tbltit"), "UA3ABC");
    // the QTC copy still takes the log's rows column for column
    db.contest.exec("INSERT INTO tbllogTemp SELECT * FROM tbllog");
    db.contest.close();
    // and opens again without another change (beside the first, which holds the folder)
    Databases again;
    ASSERT_TRUE(again.open(dir.path(), error, false)) << error.toStdString();
}

TEST(FreqColumn, FilesTakeTheFrequencyOnlyWhereItFitsTheLoggedBand) {
    const auto row = [](const char* call, const char* band, const char* freq, const char* time) {
        LogRow r;
        r.ccall = call, r.bband = band, r.freq = freq, r.ddate = "28.11.26", r.ttime = time;
        r.ps1 = "CW", r.ps2 = "cqww", r.rsts1 = r.rstr1 = "599", r.rsts2 = "16", r.rstr2 = "14";
        return r;
    };
    const QList<LogRow> rows = {
        row("DL1ABC", "14", "14025.6", "12:00"),   row("DL2ABC", "14", "", "12:01"),
        row("DL3ABC", "14", "10125.0", "12:02"),   // the radio was off the band
        row("DL4ABC", "28", "29699.9", "12:03"),   // cut, not rounded, at the top edge
        row("DL5ABC", "7", "seven", "12:04"),      // not a number
        row("DL6ABC", "sat", "145900.0", "12:05"), // no HF band
    };
    Cabrillo3Header h;
    h.callsign = "UA3ABC";
    const QStringList cab = QString::fromLatin1(cabrillo3File(h, "cqww", rows, {})).split("\r\n");
    QStringList freqs;
    for (const QString& l : cab)
        if (l.startsWith("QSO:")) freqs << l.mid(5, 5);
    EXPECT_EQ(freqs, (QStringList{"14025", "14000", "14000", "29699", " 7000", "  sat"}));

    const QString adif = QString::fromLatin1(adif3File({}, rows));
    EXPECT_TRUE(hfc::test::holds(adif, {"<FREQ:7>14.0256", "<FREQ:7>29.6999"}));
    EXPECT_EQ(adif.count("<FREQ:"), 2);
    // the band keeps coming from the logged band
    EXPECT_EQ(adif.count("<BAND:3>20m"), 3);
}
