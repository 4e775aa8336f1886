// Live multiplier checks and the worked-multiplier views.
#include "formfixture.h"

using namespace hfc;
using hfc::test::FormFixture;

namespace {

struct MultTest : FormFixture {
    // What the live check leaves in the first multiplier's box, or with second the second's.
    QString check(const QString& contest, const QString& band, const QString& cand,
                  bool second = false) {
        form->contestcode = contest, form->curband = band;
        (second ? form->draft().psCandidate : form->draft().multCandidate) = cand;
        second ? form->setMult2("stale") : form->setMult("stale");
        second ? form->pscheck() : form->multcheck();
        return text(second ? "txtmult2" : "txtmult");
    }
    void addMult(const QString& call, const QString& band, const QString& contest,
                 const QString& mult, const QString& rsts = "599") {
        db.contest.run("INSERT INTO tbllog (ccall, bband, ps2, mult, rsts) VALUES (?1,?2,?3,?4,?5)",
                       {call, band, contest, mult, rsts});
    }
};

} // namespace

// Each contest's scope of the first multiplier (country or prefix) and of the second (per band).
TEST_F(MultTest, EachContestChecksInItsOwnScope) {
    addMult("DL1A", "14", "cqww", "DL");
    addMult("UA3A", "14", "cqww", "");
    addMult("K1AB", "14", "wpx", "K1");
    addMult("G3XY", "7", "tops", "G3");
    addMult("VK2A", "14", "vkzl", "VK2", "599");
    db.contest.run("INSERT INTO tbllog (ccall, bband, ps2, ps) VALUES "
                   "('K1AB','14','wpx','05'), ('DL1A','14','cqww','14')");
    // contest, band, candidate, sent report, then what the check leaves ("-": nothing): the
    // country once per band by default, another contest's log not counted, an empty candidate
    // never new; the prefix once in the contest in WPX and TOPS; VK/ZL once per sent report on
    // any band
    for (const char* c :
         {"cqww 14 DL 599 -", "cqww 21 DL 599 DL", "cqww 14 F 599 F", "cqm 14 DL 599 DL",
          "cqww 14 - 599 -", "wpx 21 K1 599 -", "wpx 21 K2 599 K2", "tops 3,5 G3 599 -",
          "vkzl 21 VK2 599 -", "vkzl 14 VK2 579 VK2"}) {
        QStringList f = QString(c).split(' ');
        for (QString& field : f)
            if (field == "-") field.clear();
        form->lblrsts->setText(f[3]);
        EXPECT_EQ(check(f[0], f[1], f[2]), f[4]) << c;
    }
    // the second multiplier per band in every contest
    EXPECT_EQ(check("wpx", "14", "05", true), "");
    EXPECT_EQ(check("wpx", "21", "05", true), "05");
    EXPECT_EQ(check("cqww", "14", "14", true), "");
    EXPECT_EQ(check("cqww", "14", "15", true), "15");
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
