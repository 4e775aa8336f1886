// Live multiplier checks and the worked-multiplier views.
#include "formfixture.h"

using namespace hfc;
using hfc::test::FormFixture;

namespace {

struct MultTest : FormFixture {
    QString check(const QString& contest, const QString& band, const QString& cand) {
        form->contestcode = contest;
        form->curband = band;
        form->multcand = cand;
        form->setMult("stale");
        form->multcheck();
        return text("txtmult");
    }
    QString pcheck(const QString& contest, const QString& band, const QString& cand) {
        form->contestcode = contest;
        form->curband = band;
        form->pscand = cand;
        form->setMult2("stale");
        form->pscheck();
        return text("txtmult2");
    }
    void addMult(const QString& call, const QString& band, const QString& contest,
                 const QString& mult, const QString& rsts = "599") {
        db.contest.run("INSERT INTO tbllog (ccall, bband, ps2, mult, rsts) VALUES (?1,?2,?3,?4,?5)",
                       {call, band, contest, mult, rsts});
    }
};

} // namespace

TEST_F(MultTest, CountryCountsOncePerBandByDefault) {
    addMult("DL1A", "14", "cqww", "DL");
    EXPECT_EQ(check("cqww", "14", "DL"), "");
    EXPECT_EQ(check("cqww", "21", "DL"), "DL");
    EXPECT_EQ(check("cqww", "14", "F"), "F");
    EXPECT_EQ(check("cqm", "14", "DL"), "DL"); // other contest's log does not count
}

TEST_F(MultTest, PrefixCountsOncePerContestInWpxAndTops) {
    addMult("K1AB", "14", "wpx", "K1");
    addMult("G3XY", "7", "tops", "G3");
    EXPECT_EQ(check("wpx", "21", "K1"), "");
    EXPECT_EQ(check("wpx", "21", "K2"), "K2");
    EXPECT_EQ(check("tops", "3,5", "G3"), "");
}

TEST_F(MultTest, VkZlCountsOncePerSentReportOnAnyBand) {
    addMult("VK2A", "14", "vkzl", "VK2", "599");
    form->lblrsts->setText("599");
    EXPECT_EQ(check("vkzl", "21", "VK2"), "");
    form->lblrsts->setText("579");
    EXPECT_EQ(check("vkzl", "14", "VK2"), "VK2");
}

TEST_F(MultTest, SecondMultiplierIsPerBandInEveryContest) {
    db.contest.run("INSERT INTO tbllog (ccall, bband, ps2, ps) VALUES "
                   "('K1AB','14','wpx','05'), ('DL1A','14','cqww','14')");
    EXPECT_EQ(pcheck("wpx", "14", "05"), "");
    EXPECT_EQ(pcheck("wpx", "21", "05"), "05");
    EXPECT_EQ(pcheck("cqww", "14", "14"), "");
    EXPECT_EQ(pcheck("cqww", "14", "15"), "15");
}

TEST_F(MultTest, EmptyCandidateIsNeverNew) {
    addMult("UA3A", "14", "cqww", "");
    EXPECT_EQ(check("cqww", "14", ""), "");
}

TEST_F(MultTest, WorkedListTogglesAndFollowsTheCheckScope) {
    addMult("DL1A", "14", "cqww", "DL");
    addMult("UA3A", "14", "cqww", "");
    addMult("F5B", "14", "cqww", "F");
    addMult("DL2A", "21", "cqww", "DL");
    addMult("K1AB", "14", "wpx", "K1");
    addMult("K2AB", "21", "wpx", "K2");
    addMult("VK2A", "14", "vkzl", "VK2", "599");
    addMult("VK3A", "14", "vkzl", "VK3", "579");

    form->contestcode = "cqww";
    form->curband = "14";
    form->call("mnumdxcc_Click", {});
    EXPECT_EQ(form->List1->items(), QStringList({"DL", "F"}));
    form->call("mnumdxcc_Click", {});
    EXPECT_FALSE(form->List1->visible());

    form->contestcode = "wpx";
    form->mnumdxcc_Click();
    EXPECT_EQ(form->List1->items(), QStringList({"K1", "K2"}));
    form->mnumdxcc_Click();

    form->contestcode = "vkzl";
    form->lblrsts->setText("579");
    form->mnumdxcc_Click();
    EXPECT_EQ(form->List1->items(), QStringList({"VK3"}));
}
