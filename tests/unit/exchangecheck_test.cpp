// The "Неверно" mark on Enter: what it stops, how the operator confirms or corrects, which marks
// it leaves alone; the counts that read earlier QSOs.
#include "contests/contestdef.h"
#include "contests/exchangecheck.h"
#include "contests/locator.h"
#include "scoringfixture.h"

#include <cmath>

using namespace hfc;
using ExchangeCheck = hfc::test::ScoringFixture;

namespace {
const QString bad = QStringLiteral("Неверно");
}

TEST_F(ExchangeCheck, AnUnacceptableExchangeWaitsForAnEditOrASecondEnter) {
    select("mnucqww", "16");
    typeCall("DL1ABC");
    form->typeText("\r41\r");
    EXPECT_EQ(mark(), bad);
    EXPECT_EQ(logRows(), 0);
    EXPECT_EQ(form->focused(), form->txtrstr);
    form->typeText("\b"); // an edit hides the mark and checks again
    EXPECT_FALSE(marked());
    form->typeText("5\r"); // "45": still no zone
    EXPECT_EQ(mark(), bad);
    EXPECT_EQ(logRows(), 0);
    // the same exchange again: taken as received, with the points of its table
    form->typeText("\r");
    EXPECT_FALSE(marked());
    ASSERT_EQ(logRows(), 1);
    EXPECT_EQ(db.contest.query("SELECT rstr2, point, ps1 FROM tbllog")[0],
              QStringList({"45", "1", "CW"}));
}

TEST_F(ExchangeCheck, ARepeatKeepsItsMarkAndIsStoredAsADupe) {
    select("mnucqww", "16");
    typeCall("DL1ABC");
    form->typeText("\r\r");
    typeCall("DL1ABC");
    form->typeText("\r41\r");
    ASSERT_EQ(logRows(), 2);
    EXPECT_EQ(db.contest.query("SELECT rstr2, point, ps1 FROM tbllog ORDER BY rowid DESC")[0],
              QStringList({"41", "0", "DUPE"}));
}

TEST_F(ExchangeCheck, AnOblastAddedToTheDistrictTableIsAccepted) {
    select("mnurus", "MA");
    typeCall("RA3BB");
    form->typeText("\rQQ\r");
    EXPECT_EQ(mark(), bad);
    db.rus.run("INSERT INTO tblrus (pref, kodsrr) VALUES ('3Z', 'QQ')");
    form->typeText("\bQ\r");
    EXPECT_FALSE(marked());
    EXPECT_EQ(logRows(), 1);
}

TEST_F(ExchangeCheck, ChampionshipCountsTheFirstCorrespondentOfAZoneEachHour) {
    select("mnuchemp");
    for (const auto& [time, call, exchange] : {std::tuple{"12:10", "RA3BB", "\r3\r001\r"},
                                               {"12:20", "RA6CC", "\r3\r002\r"},
                                               {"12:25", "RA9DD", "\r5\r003\r"},
                                               {"13:05", "RA6EE", "\r3\r004\r"}}) {
        at(time);
        typeCall(call);
        form->typeText(exchange);
    }
    EXPECT_EQ(db.contest.column("SELECT point2 FROM tbllog ORDER BY rowid"),
              QStringList({"1", "0", "1", "1"}));
}

TEST_F(ExchangeCheck, RsgbBonusForTheFirstDistrictAndTheFirstCountry) {
    select("mnursgb");
    form->cmbband_Click(0);
    for (const char* qso :
         {"G3ABC 001AB", "G4XYZ 012AB", "G3DEF 015CD", "DL1ABC 020", "DL2XYZ 021", "F5ABC 022"}) {
        typeCall(QString(qso).section(' ', 0, 0));
        form->typeText("\r" + QString(qso).section(' ', 1) + "\r");
    }
    EXPECT_EQ(db.contest.column("SELECT point2 FROM tbllog ORDER BY rowid"),
              QStringList({"5", "0", "5", "5", "0", "5"}));
}

TEST(ExchangeRules, EveryContestHasAPointsRuleAndACheck) {
    for (const contests::ContestDef& c : contests::catalogue()) {
        const QString code = QLatin1String(c.code);
        EXPECT_TRUE(hasExchangeCheck(code)) << c.code;
        // RAEM and UBA score through their own procedures
        const bool own = code == "raem" || code == "uba";
        EXPECT_EQ(pointsRule(code) == nullptr, own) << c.code;
    }
}

TEST(ExchangeRules, SquareDistances) {
    EXPECT_FALSE(contests::squareDistanceKm("KO85", "KO8"));
    EXPECT_FALSE(contests::squareDistanceKm("SO85", "KO85"));
    EXPECT_EQ(*contests::squareDistanceKm("KO85", "ko85ur"), 0.0);
    // one square east at 55.5° N: 2° of longitude, about 126 km
    EXPECT_NEAR(*contests::squareDistanceKm("KO85", "KO95"), 126, 1);
    // one square north: 1° of latitude, about 111 km
    EXPECT_NEAR(*contests::squareDistanceKm("JO62", "JO63"), 111, 1);
}
