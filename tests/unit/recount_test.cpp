// Serial numbers and band totals rebuilt from the log. The totals' rules of every kind are held
// against plain queries in logtally_test.cpp.
#include "formfixture.h"

using namespace hfc;
using hfc::test::FormFixture;

namespace {

struct RecountTest : FormFixture {
    void select(const QString& item, const QString& input = {}) {
        if (!input.isNull()) ui.queueInput(input);
        ASSERT_TRUE(form->call(item + "_Click", {}));
    }
    void addQsos(int n, const QString& contest, const QString& band = "14") {
        db.contest.begin();
        for (int i = 0; i < n; ++i) addRow(QString("UA%1ABC").arg(i), band, contest);
        db.contest.commit();
    }
    QStringList bandColumn(const char* base) {
        QStringList out;
        for (int b = 0; b < 7; ++b) out << text(QString("%1(%2)").arg(base).arg(b));
        return out;
    }
};

} // namespace

TEST_F(RecountTest, EmptyLogStartsAtOneEverywhereZero) {
    addQsos(3, "wpx"); // another contest's QSOs never count
    select("mnucqm");
    EXPECT_EQ(texts({"TXTRSTS2", "txtrsts"}), "0|001");
    EXPECT_EQ(bandColumn("qsoband"), QStringList(7, "0"));
    EXPECT_EQ(text("multtot") + text("multtot1"), "00");
}

TEST_F(RecountTest, SerialKeepsThreeDigitsAndGrowsPastThem) {
    select("mnuwpx");
    const std::pair<int, const char*> cases[] = {{9, "010"}, {99, "100"}, {999, "1000"}};
    int logged = 0;
    for (const auto& [n, next] : cases) {
        addQsos(n - logged, "wpx");
        logged = n;
        form->nextserial();
        EXPECT_EQ(texts({"TXTRSTS2", "txtrsts"}), QString::number(n) + "|" + next);
    }
}

TEST_F(RecountTest, ChampionshipSumsPointsInsteadOfCountingMultipliers) {
    db.contest.run("INSERT INTO tbllog (ccall, bband, ps2, mult, ps, point, point2) VALUES "
                   "('UA1A','7','chemp','X','Y','12','1'), ('UA4B','7','chemp','X','Y','15','2'),"
                   "('UA9C','3,5','chemp','','','19',''), ('UA0D','3,5','cqww','','','50','9')");
    select("mnuchemp"); // the band columns against plain queries: logtally_test.cpp
    EXPECT_EQ(texts({"multtot", "multtot1", "lblrsts", "lblrstr"}), "46|3|1|");
}

TEST_F(RecountTest, LzOpenPassesOnTheLastReceivedNumber) {
    select("mnulzo");
    // the contest's own captions blank the sent element after the restart; the next
    // restart (the callsign box taking the focus) fills it again
    form->nextserial();
    EXPECT_EQ(texts({"lblrsts", "txtrsts"}), "001|000");
    db.contest.run("INSERT INTO tbllog (ccall, bband, ps2, rstr2) VALUES "
                   "('LZ1A','7','lzo','0047'), ('LZ2B','7','lzo','123'), "
                   "('LZ9Z','7','cqww','999')");
    form->nextserial();
    EXPECT_EQ(texts({"lblrsts", "txtrsts"}), "003|123");
    form->recount();
    EXPECT_EQ(text("multtot"), "0"); // no points logged: the empty sum shows as 0
}

TEST_F(RecountTest, ContestsWithoutRestartKeepThePreviousSerialAndTotals) {
    addQsos(5, "cqww");
    select("mnucqww", "16");
    select("mnuwpx"); // a restart for comparison: wpx has no QSOs
    EXPECT_EQ(text("qsotot"), "0");
    select("mnucqww", "16");
    ASSERT_EQ(text("qsotot"), "5");
    for (const char* item : {"mnuagcw", "mnukcj", "mnurus", "mnuari"}) {
        select(item, QString(item) == "mnuagcw" || QString(item) == "mnuari" ? QString() : "x");
        EXPECT_EQ(texts({"TXTRSTS2", "qsotot", "qsoband(3)"}), "5|5|5") << item;
    }
}
