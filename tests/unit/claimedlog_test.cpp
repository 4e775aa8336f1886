// Counting a whole log resolves its calls from the prefix and district tables read into memory:
// the answers must be those of the entry line's queries, follow an edit of the tables, and an
// edit or a new QSO must leave lblscore where a count from nothing puts it.
#include "entryfixture.h"
#include "reports/claimedlog.h"

#include <QFile>

namespace hfc::test {

namespace {

// Every 40th call of Debian's MASTER.SCP and the calls the country rules single out.
QStringList sampleCalls() {
    QStringList calls = {"UA9FGR",  "RA9AA/3",  "UA0AA",  "UA2FAA", "R9XX",   "RA1AB", "DL1ABC/MM",
                         "W1AW/AM", "UA3ABC/P", "4U1ITU", "KC4AAA", "VP8XYZ", "3ABC",  "Q"};
    QFile f(QStringLiteral("/usr/share/hamradio-files/MASTER.SCP"));
    EXPECT_TRUE(f.open(QIODevice::ReadOnly));
    for (int n = 0; !f.atEnd(); ++n) {
        const QString line = QString::fromLatin1(f.readLine()).trimmed();
        if (n % 40 == 0 && !line.isEmpty() && !line.startsWith(QLatin1Char('#'))) calls << line;
    }
    return calls;
}

bool same(const ResolvedCall& a, const ResolvedCall& b) {
    return a.pref == b.pref && a.kont == b.kont && a.strana == b.strana && a.oblast == b.oblast;
}

} // namespace

using ClaimedLogTest = EntryFixture;

TEST_F(ClaimedLogTest, TablesInMemoryResolveAsTheQueries) {
    const CallTables tables(db);
    const QStringList calls = sampleCalls();
    ASSERT_GT(calls.size(), 1000);
    int differ = 0, russian = 0;
    for (const char* contest : {"cqww", "cqm"})
        for (const QString& call : calls) {
            const ResolvedCall byQuery = resolveCall(db, contest, call);
            if (!same(tables.resolve(contest, call), byQuery)) {
                ++differ;
                ADD_FAILURE() << qPrintable(call) << " in " << contest;
            }
            russian += !byQuery.oblast.isEmpty();
        }
    EXPECT_EQ(differ, 0);
    EXPECT_GT(russian, 100); // the district table was read too
}

TEST_F(ClaimedLogTest, AnEditedPrefixTableIsReadAgain) {
    // a count of many rows (tables in memory) and the count of one new QSO (queries)
    for (size_t rows : {size_t(1000), size_t(1)}) {
        db.dxcc.exec("DELETE FROM tbldxcc WHERE PREF = 'ZZ'");
        ResolvedCalls calls;
        calls.prepare(db, rows);
        EXPECT_EQ(calls.resolve(db, "cqww", "DL1ABC").pref, "DL");
        // the DXCC window's way of adding a row
        db.dxcc.run("INSERT INTO tbldxcc (prf, strana, kont, cq, iaru, PREF) "
                    "VALUES ('DL1', 'TESTLAND', 'AF', '33', '46', 'ZZ')");
        EXPECT_EQ(calls.resolve(db, "cqww", "DL1ABC").pref, "DL"); // one count, one table
        calls.prepare(db, rows);
        EXPECT_EQ(calls.resolve(db, "cqww", "DL1ABC").pref, "ZZ") << rows;
        EXPECT_EQ(calls.resolve(db, "cqww", "DL1ABC").kont, "AF");
        EXPECT_EQ(calls.resolve(db, "cqww", "DL2ABC").pref, "DL");
    }
}

// lblscore kept up to date after each QSO, after an edit and after a clearing, always as a count
// of the log from nothing would give it.
TEST_F(ClaimedLogTest, LblscoreStaysAsAFullCount) {
    typeOwnCall("UA3ABC");
    ui.queueInput("16");
    form->fire("mnucqww_Click");
    // lblscore as shown, checked against a count of the log from nothing
    const auto score = [&] {
        EXPECT_EQ(text("lblscore"),
                  QStringLiteral("Заявка: ") +
                      claimedScoreOfLog(db, "cqww", "UA3ABC", form->myexch).breakdown);
        return text("lblscore");
    };
    const auto log = [&](const char* call, const char* zone) {
        typeCall(call);
        form->typeText(QString("\r%1\r").arg(zone));
    };
    log("DL1ABC", "14");
    log("JA1XYZ", "25");
    log("UA9FGR", "17");
    EXPECT_EQ(score(), "Заявка: 4 оч. × 6 мн. = 24");
    // an edit in the grid: the zone of the first QSO corrected
    db.contest.run("UPDATE tbllog SET rstr2 = '25' WHERE ccall = 'DL1ABC'");
    form->recount();
    EXPECT_EQ(score(), "Заявка: 4 оч. × 5 мн. = 20");
    log("W1AW", "05");
    score();
    db.contest.run("DELETE FROM tbllog WHERE ccall = 'JA1XYZ'");
    form->recount();
    EXPECT_EQ(score(), "Заявка: 4 оч. × 6 мн. = 24");
}

} // namespace hfc::test
