// What the points rules do besides the points the scoring tables check: the multipliers they
// take away, the boxes they leave alone, the codes they answer to.
#include "contests/points.h"
#include "entryfixture.h"

using namespace hfc;
using PointsWindowTest = hfc::test::EntryFixture;

namespace {

PointsResult apply(const char* contest, const char* pref, const char* kont = "EU") {
    QsoFacts q;
    q.contest = contest, q.pref = pref, q.kont = kont, q.band = "14", q.mode = "CW";
    return pointsRule(contest)(q);
}

} // namespace

TEST(PointsRules, QuirksOfTheOldBranches) {
    EXPECT_FALSE(apply("kcj", "DL").points) << "no JA: the box is left as it was";
    EXPECT_EQ(apply("lzo", "UA9", "AS").points.value_or("-"),
              "2"); // only "UA" itself counts as home
    // Only the organisers' stations bring a multiplier in WAG and PACC.
    EXPECT_TRUE(apply("wag", "OE").clearMult);
    EXPECT_FALSE(apply("wag", "DL").clearMult);
    EXPECT_TRUE(apply("pacc", "ON").clearMult);
    EXPECT_FALSE(apply("pacc", "PA").clearMult);
    EXPECT_FALSE(apply("hel", "DL").clearMult);
    for (const char* code : {"hi hi", "CQWW", "KCJ", ""})
        EXPECT_EQ(pointsRule(code), nullptr) << code;
}

TEST_F(PointsWindowTest, QsopointsClearsTheMultiplierTheRuleTakesAway) {
    form->contestcode = "wag";
    form->txtcall->setText("OE1ABC");
    form->STRAN();
    form->setMult("OE");
    form->setPoints("5");
    form->qsopoints();
    EXPECT_EQ(texts({"txtpoint", "txtmult"}), "0|");
}
