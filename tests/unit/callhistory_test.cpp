// Call history: the file format and the values a contest's column takes (the file written from a
// log: ScpFormTest).
#include "contests/historycolumn.h"
#include "station/callhistory.h"

#include <gtest/gtest.h>

using namespace hfc;

TEST(CallHistory, TheHeaderNamesTheColumnsOfTheLinesAfterIt) {
    CallHistory h;
    h.load("# made by hand\n"
           "!!Order!!,Call,Name,CQZone,Loc1\n"
           "ua3abc,Ivan,16,MA\r\n"
           "DL1AB,Hans,14\n"
           "\n"
           "!!Order!!,Name,Call,Exch1\n" // a second header changes the layout
           "Joe,K1AR,MA\n"
           "Bob\n"); // no call: nothing to keep
    EXPECT_EQ(h.size(), 3u);
    // names and calls in any case; DL1AB's is a short line
    const std::tuple<const char*, const char*, const char*> values[] = {
        {"ua3abc", "cqzone", "16"}, {"UA3ABC", "Loc1", "MA"}, {"DL1AB", "Loc1", ""},
        {"K1AR", "Exch1", "MA"},    {"W1AW", "Name", ""},     {"UA3ABC", "State", ""}};
    for (const auto& [call, column, value] : values)
        EXPECT_EQ(h.value(call, column), value) << call << " " << column;
    EXPECT_EQ(h.columns(), QStringList({"Call", "Name", "CQZone", "Loc1", "Exch1"}));
}

TEST(CallHistory, WithoutAHeaderLinesAreCallAndExchange) {
    // Debian's DOK list for the DARC contests is such a file.
    CallHistory h;
    ASSERT_TRUE(h.loadFile("/usr/share/hamradio-files/WAG_call_history.txt"));
    EXPECT_GT(h.size(), 4000u);
    EXPECT_EQ(h.value("DA0AA", "Exch1"), "B06");
    EXPECT_TRUE(h.has("DA0DOM")); // an empty exchange still names the call
    EXPECT_EQ(h.value("DA0DOM", "Exch1"), "");
}

TEST(HistoryColumn, AValueIsTakenOnlyWhereItFitsTheColumn) {
    // "001" is a serial number, no zone; "123" a DX station's serial in RDXC, no oblast
    const std::tuple<const char*, const char*, bool> fits[] = {
        {"CQZone", "14", true},  {"CQZone", "41", false}, {"CQZone", "001", false},
        {"ITUZone", "90", true}, {"ITUZone", "0", false}, {"Loc1", "MA", true},
        {"Loc1", "123", false},  {"Exch1", "B06", true},  {"Exch1", "", false}};
    for (const auto& [column, value, fit] : fits)
        EXPECT_EQ(contests::historyValueFits(column, value), fit) << column << " " << value;
}
