// QSO points of the contests whose rules are fixed, through the table and through the window.
#include "contests/points.h"
#include "entryfixture.h"

using namespace hfc;
using PointsWindowTest = hfc::test::EntryFixture;

namespace {

QsoFacts facts(const char* contest, const char* pref, const char* kont = "EU",
               const char* band = "14") {
    QsoFacts q;
    q.contest = contest;
    q.pref = pref;
    q.kont = kont;
    q.band = band;
    q.mode = "CW";
    return q;
}

// The points a rule gives, or "-" when it leaves the box alone.
std::string pointsOf(const QsoFacts& q) {
    const PointsRule rule = pointsRule(q.contest);
    if (!rule) return "no rule";
    const PointsResult r = rule(q);
    return r.points ? r.points->toStdString() : "-";
}

} // namespace

TEST(PointsRules, FixedBranches) {
    struct Case {
        QsoFacts q;
        const char* points;
    } cases[] = {
        {facts("kcj", "JA", "AS"), "1"},
        {facts("kcj", "DL"), "-"},
        {facts("cqww", "DL"), "1"},
        {facts("cqww", "K", "NA"), "3"},
        {facts("bal", "ES"), "10"},
        {facts("bal", "LY"), "10"},
        {facts("bal", "YL"), "10"},
        {facts("bal", "SM"), "1"},
        {facts("sp", "SP"), "3"},
        {facts("sp", "DL"), "0"},
        {facts("pacc", "PA"), "1"},
        {facts("pacc", "DL"), "0"},
        {facts("agcw", "K", "NA"), "1"},
        {facts("marc", "JA", "AS"), "1"},
        {facts("lzd", "LZ"), "6"},
        {facts("lzd", "DL"), "1"},
        {facts("lzd", "K", "NA"), "3"},
        {facts("lzo", "UA"), "1"},
        {facts("lzo", "UA9", "AS"), "2"},
        {facts("wag", "DL"), "3"},
        {facts("wag", "OE"), "0"},
        {facts("hel", "HB"), "3"},
        {facts("hel", "DL"), "0"},
        {facts("hol", "4X", "AS", "7"), "2"},
        {facts("hol", "4X", "AS", "1,8"), "2"},
        {facts("hol", "4X", "AS", "3,5"), "2"},
        {facts("hol", "4X", "AS", "14"), "1"},
        {facts("hol", "4X", "AS", "28"), "1"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(pointsOf(c.q), c.points)
            << c.q.contest.toStdString() << " " << c.q.pref.toStdString();
}

TEST(PointsRules, OnlyTheOrganisersStationsBringAMultiplierInWagAndPacc) {
    EXPECT_TRUE(pointsRule("wag")(facts("wag", "OE")).clearMult);
    EXPECT_FALSE(pointsRule("wag")(facts("wag", "DL")).clearMult);
    EXPECT_TRUE(pointsRule("pacc")(facts("pacc", "ON")).clearMult);
    EXPECT_FALSE(pointsRule("pacc")(facts("pacc", "PA")).clearMult);
    EXPECT_FALSE(pointsRule("hel")(facts("hel", "DL")).clearMult);
}

TEST(PointsRules, CodesWithoutABranchHaveNoRule) {
    for (const char* code : {"hi hi", "CQWW", "KCJ", ""})
        EXPECT_EQ(pointsRule(code), nullptr) << code;
}

TEST_F(PointsWindowTest, QsopointsWritesTheBoxesFromTheResolvedCall) {
    form->contestcode = "wag";
    form->txtcall->setText("OE1ABC");
    form->STRAN();
    form->txtmult->setText("OE");
    form->txtpoint->setText("5");
    form->qsopoints();
    EXPECT_EQ(text("txtpoint"), "0");
    EXPECT_EQ(text("txtmult"), "");

    form->contestcode = "lzd";
    form->txtcall->setText("LZ1AA");
    form->STRAN();
    form->txtmult->setText("LZ");
    form->qsopoints();
    EXPECT_EQ(text("txtpoint"), "6");
    EXPECT_EQ(text("txtmult"), "LZ");

    form->contestcode = "hol";
    form->cmbband_Click(2);
    form->qsopoints();
    EXPECT_EQ(text("txtpoint"), "2");
    form->cmbband_Click(3);
    form->qsopoints();
    EXPECT_EQ(text("txtpoint"), "1");
}

TEST_F(PointsWindowTest, AContestWithoutABranchLeavesThePointsAsTheyWere) {
    ASSERT_EQ(form->contestcode, "hi hi");
    form->txtcall->setText("DL1ABC");
    form->STRAN();
    form->txtpoint->setText("7");
    form->txtmult->setText("DL");
    form->qsopoints();
    EXPECT_EQ(text("txtpoint"), "7");
    EXPECT_EQ(text("txtmult"), "DL");
    EXPECT_FALSE(form->txtrepit->visible());
}

TEST_F(PointsWindowTest, Eu13ByContinent) {
    form->callkont = "EU";
    form->EU13();
    EXPECT_EQ(text("txtpoint"), "1");
    form->callkont = "OC";
    form->EU13();
    EXPECT_EQ(text("txtpoint"), "3");
}
