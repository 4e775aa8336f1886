// Country, zones and prefix of typed calls, resolved against the seeded prefix and district
// tables.
#include "entryfixture.h"

using namespace hfc;
using CountryTest = hfc::test::EntryFixture;

TEST_F(CountryTest, RealCallsResolveToTheLongestMatchingRowAndRussianDistricts) {
    // call, then prefix, continent, CQ and ITU zone and country as the boxes show them
    for (const char* c : {
             "DL1ABC DL EU 14 28 FED. REP. OF G",
             "W1AW K NA 05 08 UNITED STATES",      // one-digit zones padded
             "EA8ABC EA8 AF 33 36 CANARY ISLANDS", // EA8 over EA
             "OH0A OH0 EU 15 18 ALAND ISLANDS",    // OH0 over OH
             "OH2BH OH EU 15 18 FINLAND",
             "SV9ABC SV9 EU 20 28 CRETE",
             "4U1ITU 4U1I EU 14 28 ITU HQ",
             "TA1AD TA1 EU 20 39 EUROPEAN TURKE",
             "TA1AD/0 TA AS 20 39 ASIATIC TURKEY", // an exact-call row with "/"
             // Russia: the entity from the area, the zones from the district
             "UA3ABC UA EU 16 29 RUSSIAN",
             "RA9XAA UA EU 17 19 RUSSIAN", // Komi: European by cty.dat's RA9X row
             "RA9AA UA9 AS 17 30 RUSSIAN", // Asiatic by the RA9 row
             "R2FAA UA2 EU 15 29 RUSSIAN",
             "UA3ABC/9 UA9 AS 16 29 RUSSIAN", // zones still from area 3
             "UA9ABC/2 UA2 EU 17 30 RUSSIAN",
         }) {
        resolve(QString(c).section(' ', 0, 0));
        EXPECT_EQ(QStringList({form->draft().dxccPrefix, form->draft().continent, form->draft().cq,
                               form->draft().itu, form->draft().country, text("txtstran5")})
                      .join(' '),
                  QString(c).section(' ', 1) + " " + QString(c).section(' ', 5))
            << c;
    }
}

TEST_F(CountryTest, PrefixIsCutOnEveryKeyFromTheSecondCharacter) {
    typeCall("O");
    EXPECT_EQ(form->draft().prefix, "");
    form->typeText("H");
    EXPECT_EQ(form->draft().prefix, "OH0");
    form->typeText("2/UA3ABC");
    EXPECT_EQ(form->draft().prefix, "OH2");
    EXPECT_EQ(form->draft().dxccPrefix, "OH"); // the table walk starts at the call's beginning
}

TEST_F(CountryTest, RudxPutsTheDistrictCodeOfRussianCallsIntoTheExchange) {
    form->contestcode = "rudx";
    for (const auto& [call, code] : {std::pair{"RA3AA", "MA"}, {"UA9XAA", "KO"}, {"DL1ABC", ""}}) {
        resolve(call);
        EXPECT_EQ(text("txtrstr"), code) << call;
    }
    // another contest leaves the exchange alone
    form->contestcode = "cqww";
    form->txtrstr->setText("");
    resolve("RA3AA");
    EXPECT_EQ(text("txtrstr"), "");
}

TEST_F(CountryTest, CqmCountsItsOwnRussianAreas) {
    for (const auto& [contest, call, pref] :
         {std::tuple{"cqm", "UA4SAA", "UA4S"}, {"cqm", "UA4AAA", "UA"}, {"cqww", "UA4SAA", "UA"}}) {
        form->contestcode = contest;
        resolve(call);
        EXPECT_EQ(form->draft().dxccPrefix, pref) << contest << " " << call;
    }
}

// UBA's points by the European list are in its scoring table.
TEST_F(CountryTest, YuCountsOnlyYuStations) {
    form->contestcode = "yu";
    form->setMult("X");
    resolve("DL1ABC");
    EXPECT_EQ(text("txtpoint"), "0");
    EXPECT_EQ(text("txtmult"), "");
    resolve("YU1AA");
    EXPECT_EQ(form->draft().multCandidate, "YU");
}

TEST_F(CountryTest, OwnCallIsResolvedToo) {
    // before a call is given: a station in European Russia
    EXPECT_EQ(form->ownpref + form->ownkont, "UAEU");
    typeOwnCall("VK2ABC"); // stored cut to "ABC"; the station is the call as typed
    EXPECT_EQ(QStringList({form->ownpref, form->ownkont, form->ownprf, form->owncq}),
              QStringList({"VK", "OC", "VK2", "30"}));
    form->TXTNCALL->setText("UA0AA"); // a Russian district gives the zones
    form->resolveOwnCall();
    EXPECT_EQ(QStringList({form->ownpref, form->ownkont, form->owncq, form->ownitu}),
              QStringList({"UA9", "AS", "18", "32"}));
}
