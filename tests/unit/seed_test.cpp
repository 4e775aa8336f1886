// The seed tables as a new data folder gets them: the rows the country and district logic
// depends on, and the shape every row must have. Resolving real calls against them is in the
// country tests.
#include "contests/contestdef.h"
#include "data/databases.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace hfc;

namespace {

struct SeedTest : ::testing::Test {
    QTemporaryDir dir;
    Databases db;
    void SetUp() override {
        QString error;
        ASSERT_TRUE(db.open(dir.path(), error)) << error.toStdString();
    }
};

// SQL that is true for a zone written as a plain number 1..99.
QString plainZone(const char* column) {
    return QString("(%1 GLOB '[1-9]' OR %1 GLOB '[1-9][0-9]')").arg(column);
}

} // namespace

TEST_F(SeedTest, DxccTableHoldsTheEntitiesTheLogicNeeds) {
    ASSERT_GT(db.dxcc.count("SELECT * FROM tbldxcc"), 1000);
    const auto row = [&](const char* prf) {
        return db.dxcc.scalar("SELECT prf || ' ' || PREF || ' ' || strana || ' ' || kont || ' ' || "
                              "iaru || ' ' || cq FROM tbldxcc WHERE prf = ?1",
                              {prf});
    };
    EXPECT_EQ(row("UA"), "UA UA RUSSIAN EU 29 16");
    EXPECT_TRUE(row("UA9").startsWith("UA9 UA9 RUSSIAN AS")) << row("UA9").toStdString();
    EXPECT_TRUE(row("UA2").startsWith("UA2 UA2 RUSSIAN")) << row("UA2").toStdString();
    EXPECT_TRUE(row("JA").startsWith("JA JA JAPAN AS")) << row("JA").toStdString();
    EXPECT_TRUE(row("IT9").startsWith("IT9 IT9 ")) << "WAE-only entities keep their prefix, no '*'";
    EXPECT_EQ(db.dxcc.count("SELECT prf FROM tbldxcc GROUP BY prf HAVING count(*) > 1"), 0);
    // a country name fits its box; zones are plain numbers
    EXPECT_EQ(db.dxcc.count("SELECT * FROM tbldxcc WHERE length(strana) > 14 OR PREF GLOB '[*]*' "
                            "OR NOT " +
                            plainZone("iaru") + " OR NOT " + plainZone("cq")),
              0);
}

TEST_F(SeedTest, DistrictTableMapsCallAreasToOblastCodes) {
    const auto row = [&](const char* pref) {
        return db.rus.scalar("SELECT kodsrr || ' ' || cq || ' ' || itu FROM tblrus WHERE pref = ?1",
                             {pref});
    };
    EXPECT_EQ(row("3A"), "MA 16 29");
    EXPECT_TRUE(row("0Z").endsWith(" 19 35")) << row("0Z").toStdString();
    EXPECT_EQ(row("3D").left(2) + row("9X").left(2) + row("2F").left(2) + row("1A").left(2),
              "MOKOKASP");
    EXPECT_EQ(db.rus.count("SELECT pref FROM tblrus GROUP BY pref HAVING count(*) > 1"), 0);
    EXPECT_EQ(db.rus.count("SELECT * FROM tblrus WHERE NOT pref GLOB '[0-9][A-Z]' OR NOT kodsrr "
                           "GLOB '[A-Z][A-Z]' OR NOT " +
                           plainZone("cq") + " OR NOT " + plainZone("itu")),
              0);
}

TEST_F(SeedTest, HelpTableHasOneRulesRowPerContest) {
    QStringList codes;
    for (const contests::ContestDef& c : contests::catalogue()) codes << c.code;
    codes.sort();
    EXPECT_EQ(db.help.column("SELECT CONTEST FROM tblhelp ORDER BY CONTEST"), codes);
    for (const QStringList& r : db.help.query("SELECT CONTEST, TXTHELP, rezgod || rezmod || rezul "
                                              "|| rezfile FROM tblhelp")) {
        const qsizetype lines = r[1].count('\n') + 1;
        EXPECT_TRUE(lines >= 3 && lines <= 8) << r[0].toStdString();
        EXPECT_EQ(r[2], "") << r[0].toStdString();
    }
}
