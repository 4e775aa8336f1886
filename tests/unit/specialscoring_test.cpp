// RAEM distance scoring and the SAC area multiplier.
#include "contests/scoring.h"
#include "formfixture.h"
#include "forms/contest/entrymark.h"

using namespace hfc;
using hfc::test::FormFixture;

namespace {

struct RaemTest : FormFixture {
    void SetUp() override {
        FormFixture::SetUp();
        form->myexch = "55N37O";
    }
    // points and bonus after scoring a received exchange
    std::pair<QString, QString> score(const QString& rx, const QString& call = "UA9ABC",
                                      bool repeat = false) {
        form->txtrstr->setText(rx);
        form->txtcall->setText(call);
        showMark(*form, repeat ? QsoDraft::Mark::Repeat : QsoDraft::Mark::None);
        form->setPoints("kept");
        form->setPoints2("kept");
        form->call("raemscore", {});
        return {text("txtpoint"), text("txtpoint2")};
    }
};

} // namespace

// The plain distances and bonuses are in the scoring tables.
TEST_F(RaemTest, EdgesOfTheDistanceRule) {
    EXPECT_EQ(score("00140N30O"), std::make_pair(QString("22"), QString("kept"))); // west, south
    EXPECT_EQ(score("00102N02O").first, "88"); // 2 is inside the bounds
    // 10-character exchanges subtract without an absolute value
    EXPECT_EQ(score("00155N020O").first, "-17");
    // out of range or the wrong length: the boxes are left
    for (const char* rx :
         {"00101N37O", "00190N37O", "00155N180O", "00155N01O", "0015N37O", "00155N37O12"})
        EXPECT_EQ(score(rx), std::make_pair(QString("kept"), QString("kept"))) << rx;
}

TEST_F(RaemTest, SpecialStationAndRepeats) {
    EXPECT_EQ(score("00175N37O", "RAEM").second, "300"); // replaces the north bonus
    EXPECT_EQ(score("00175N37O", "RAEM/P").second, "100");
    EXPECT_EQ(score("00175N40O", "RAEM", true), std::make_pair(QString("0"), QString("")));
}

using SacTest = FormFixture;

TEST_F(SacTest, SacZeroesThePointsAndLeavesTheMultiplier) {
    form->contestcode = "sac", form->curband = "14", form->draft().dxccPrefix = "OH";
    form->txtcall->setText("OH2XX");
    form->setPoints("1");
    form->setMult("untouched");
    form->sacarea = 4;
    form->call("SAC", {});
    EXPECT_EQ(texts({"txtpoint", "txtmult"}), "0|untouched");
    EXPECT_EQ(form->sacarea, 0);
}

TEST(SacCandidate, CallAreaDigitOrZero) {
    const QString digits = "0123456789";
    EXPECT_EQ(contests::sacCandidate("OH", "OH2XX", digits), "OH2");
    EXPECT_EQ(contests::sacCandidate("G", "G4ABC", digits), "G0");
    EXPECT_EQ(contests::sacCandidate("SM", "SM", digits), "SM0");
}

TEST_F(SacTest, SacOneIndexesTheAreaBox) {
    form->setPoints("1");
    form->draft().multCandidate = "OH7";
    form->sacarea = 2;
    form->SAC1();
    EXPECT_EQ(form->sacbox, 27);
    form->sacbox = 0;
    form->setPoints("2");
    form->SAC1();
    EXPECT_EQ(form->sacbox, 0);
}
