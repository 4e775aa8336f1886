// Rules that follow from the callsign alone: prefix cut, Russian areas, district key, CQ-M
// areas, the European list.
#include "country/callprefix.h"
#include "country/russia.h"

#include <gtest/gtest.h>

using namespace hfc;

TEST(CallPrefix, PlainCallsRunToTheDigitsAfterTheFirstCharacter) {
    const std::pair<const char*, const char*> cases[] = {
        {"UA3ABC", "UA3"}, {"DL1ABC", "DL1"},     {"K1AR", "K1"},   {"9A1AA", "9A1"},
        {"2E0ABC", "2E0"}, {"3DA0RU", "3DA0"},    {"4X4AA", "4X4"}, {"S52AA", "S52"},
        {"E73AB", "E73"},  {"LY2000X", "LY2000"}, {"UA3", "UA3"},   {"OH2", "OH2"}};
    for (auto [call, prefix] : cases) EXPECT_EQ(callPrefix(call), prefix) << call;
}

TEST(CallPrefix, CallsWithoutADigitGetZero) {
    EXPECT_EQ(callPrefix("RAEM"), "RA0");
    EXPECT_EQ(callPrefix("UA"), "UA0");
    EXPECT_EQ(callPrefix("9A"), "9A0");
    // one character has no prefix: the caller keeps what it had
    EXPECT_EQ(callPrefix("U"), "");
    EXPECT_EQ(callPrefix(""), "");
}

TEST(CallPrefix, SlashRules) {
    // "F/": "/" as second character; "UA3ABC/": still typing
    const std::pair<const char*, const char*> cases[] = {
        {"F/UA3ABC", "F0"},     {"F/", "F0"},         {"PA/N8BJQ", "PA0"},  {"OH2/UA3ABC", "OH2"},
        {"K1ABC/VP9", "VP9"},   {"UA3ABC/9", "UA9"},  {"LY2000X/1", "LY1"}, {"UA3ABC/P", "UA3"},
        {"UA3ABC/QRP", "UA3"},  {"UA3ABC/MM", "UA3"}, {"UA3ABC/", "UA3"},   {"DL/HB9DQJ/LH", "DL0"},
        {"OH2/UA3ABC/P", "OH2"}};
    for (const auto& [call, prefix] : cases) EXPECT_EQ(callPrefix(call), prefix) << call;
}

TEST(RussianAreas, SlashSuffixDecidesAndOtherwiseTheCtyDatRowStands) {
    struct Case {
        const char* call;
        const char* pref; // as the prefix row gave it
        const char* kont;
        const char* wantPref;
        const char* wantKont;
    } cases[] = {
        // no suffix: whatever the digit says, the row decides (UA9FGR is Perm, in Europe)
        {"UA9FGR", "UA", "EU", "UA", "EU"},
        {"RA0AA", "UA9", "AS", "UA9", "AS"},
        {"UA2FAA", "UA2", "EU", "UA2", "EU"},
        {"UA3ABC/9", "UA", "EU", "UA9", "AS"},
        {"RA9AA/3", "UA9", "AS", "UA", "EU"},
        {"UA9ABC/1", "UA9", "AS", "UA", "EU"},
        {"UA9ABC/2", "UA9", "AS", "UA2", "EU"},
        {"UA9ABC/5", "UA9", "AS", "UA9", "AS"}, // no rule for 5
        {"UA9ABC/P", "UA9", "AS", "UA9", "AS"},
    };
    for (const Case& c : cases) {
        QString pref = c.pref, kont = c.kont;
        refineRussianArea(c.call, pref, kont);
        EXPECT_EQ(pref + " " + kont, QString(c.wantPref) + " " + c.wantKont) << c.call;
    }
}

TEST(RussianAreas, DistrictKeyIsTheAreaDigitAndTheLetterAfterIt) {
    // UA3: three characters, no key; RAEM: no digit
    const std::pair<const char*, const char*> cases[] = {{"RA3ABC", "3A"}, {"R3ABC", "3A"},
                                                         {"UA9XAA", "9X"}, {"UA0QBR", "0Q"},
                                                         {"UA3", ""},      {"RAEM", ""}};
    for (const auto& [call, key] : cases) EXPECT_EQ(russianDistrictKey(call), key) << call;
}

TEST(CqmAreas, OwnMultiplierAreasAndTheRest) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"UA4SAA", "UA", "UA4S"},  {"RA4YA", "UA", "UA4Y"},   {"UA4AAA", "UA", "UA"},
        {"UA9XAA", "UA9", "UA9X"}, {"UA0YAA", "UA9", "UA0Y"}, {"UA0AAA", "UA9", "UA9"},
        {"UA4", "UA", "UA"}};
    for (const auto& [call, pref, want] : cases) EXPECT_EQ(cqmPrefix(call, pref), want) << call;
}

TEST(EuropeanList, PaddedThreeCharacterEntries) {
    EXPECT_TRUE(inEuropeanList("F"));
    EXPECT_TRUE(inEuropeanList("OH0"));
    EXPECT_FALSE(inEuropeanList("EA8"));
    EXPECT_FALSE(inEuropeanList("UA"));
    EXPECT_FALSE(inEuropeanList("O")); // no match across entry boundaries
    EXPECT_FALSE(inEuropeanList("0OJ"));
    EXPECT_EQ(QString::fromLatin1(EuropeanList).size(), 29 * 3);
}

TEST(Zones, OneDigitZonesArePadded) {
    EXPECT_EQ(padZone("3"), "03");
    EXPECT_EQ(padZone(""), "");
    EXPECT_EQ(eu13Points("EU") + eu13Points("AS") + eu13Points(""), "133");
}
