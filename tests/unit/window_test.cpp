// Start-up and the clock of the main window, and the sort key of the log's dates.
#include "datafolder.h"
#include "formfixture.h"
#include "text/dates.h"

using namespace hfc;
using namespace hfc::test;

using WindowTest = FormFixture;

TEST_F(WindowTest, StartsWithNoContestAndClockFillsUtcDateAndTime) {
    EXPECT_EQ(form->contestcode, "hi hi");
    form->Timer1_Timer();
    EXPECT_EQ(texts({"txttime", "txtdate"}), "12:05:00|30.11.02");
    form->Label4_Click();
    form->Timer1_Timer();
    EXPECT_EQ(text("txttime"), "15:05:00");
}

TEST_F(WindowTest, UtcDateChangesAtUtcMidnight) {
    clock.set(QDateTime(QDate(2002, 12, 1), QTime(2, 30)),
              QDateTime(QDate(2002, 11, 30), QTime(23, 59, 59)));
    form->Timer1_Timer();
    EXPECT_EQ(text("txtdate"), "30.11.02");
    clock.advance(1);
    form->Timer1_Timer();
    EXPECT_EQ(text("txtdate"), "01.12.02");
}

// Bad files and folders are in badfiles_test.cpp, a log kept over a restart in the
// session_restart scenario.
TEST(Databases, CdateGivesTheSortKeyOfEveryDateAndOfTextThatIsNone) {
    QTemporaryDir dir;
    OpenedData db(dir.path());
    for (const char* d : {"01.01.03", "31.12.02", "05.02.99", "15.11.02"})
        db.contest.run("INSERT INTO tbllog (ccall, ddate) VALUES ('X', ?1)", {d});
    EXPECT_EQ(db.contest.column("SELECT ddate FROM tbllog ORDER BY cdate(ddate)"),
              QStringList({"05.02.99", "15.11.02", "31.12.02", "01.01.03"}));
    QStringList texts = QString("29.02.01|31.04.02|00.01.02|32.01.02|01.13.02|01.00.02|1.2.03|"
                                "01.02.2003| 01.02.03|01.02.03 |01-02-03|ab.cd.ef||29.02.00|"
                                "29.02.29|29.02.30|+1.02.03|0x.02.03")
                            .split('|');
    for (QDate d(1930, 1, 1); d.year() < 2030; d = d.addDays(1)) texts << d.toString("dd.MM.yy");
    for (const QString& t : texts)
        ASSERT_EQ(db.contest.scalar("SELECT cdate(?1)", {t}), ddateSortKey(t)) << t.toStdString();
    EXPECT_EQ(db.contest.scalar("SELECT cdate(NULL)"), ddateSortKey(QString()));
}
