// The seed tables as a new data folder gets them: the shape every row must have. The rows the
// country and district logic depends on are held by resolving real calls in the country tests.
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
    EXPECT_EQ(db.dxcc.scalar("SELECT PREF FROM tbldxcc WHERE prf = 'IT9'"), "IT9")
        << "WAE-only entities keep their prefix";
    EXPECT_EQ(db.dxcc.count("SELECT prf FROM tbldxcc GROUP BY prf HAVING count(*) > 1"), 0);
    // a country name fits its box; zones are plain numbers
    EXPECT_EQ(db.dxcc.count("SELECT * FROM tbldxcc WHERE length(strana) > 14 OR PREF GLOB '[*]*' "
                            "OR NOT " +
                            plainZone("iaru") + " OR NOT " + plainZone("cq")),
              0);
}

TEST_F(SeedTest, DistrictTableMapsCallAreasToOblastCodes) {
    ASSERT_GT(db.rus.count("SELECT * FROM tblrus"), 50);
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
