// The claimed score by the sponsors' rules: the rule families on rows as real calls resolve,
// every contest of the menu known, and a log rescored for a new own call.
#include "contests/claimedscore.h"
#include "contests/contestdef.h"
#include "data/session.h"
#include "entryfixture.h"
#include "reports/claimedlog.h"

namespace hfc::test {

using contests::ClaimedScore;
using contests::ScoreRow;
using contests::ScoreStation;

namespace {

// A worked station, "call band exchange points pref kont [prefix [mode]]": the stored points,
// the entity and continent the call resolved to; "-" is empty, "points+bonus" gives the second
// count and "call@oblast" the district a Russian call resolved to.
ScoreRow row(const char* text) {
    QStringList f = QString::fromUtf8(text).split(' ');
    for (QString& field : f)
        if (field == "-") field.clear();
    ScoreRow r;
    r.call = f[0].section('@', 0, 0), r.oblast = f[0].section('@', 1), r.band = f[1];
    r.exchange = f[2], r.points = f[3].section('+', 0, 0).toLongLong();
    r.points2 = f[3].section('+', 1).toLongLong(), r.pref = f[4], r.kont = f[5];
    r.prefix = f.value(6), r.mode = f.value(7, "CW");
    return r;
}

std::vector<ScoreRow> rows(std::initializer_list<const char*> texts) {
    std::vector<ScoreRow> out;
    for (const char* t : texts) out.push_back(row(t));
    return out;
}

ScoreStation ua3(const char* myexch = "", qint64 qtcs = 0) {
    ScoreStation s;
    s.call = "UA3ABC", s.pref = "UA", s.kont = "EU", s.myexch = myexch, s.qtcs = qtcs;
    return s;
}

} // namespace

// One log of each rule family; -1: not looked at.
TEST(ClaimedScore, RuleFamiliesOnRowsAsRealCallsResolve) {
    const auto claim = [](const char* why, const char* code, const ScoreStation& st, qint64 points,
                          qint64 mults, qint64 total, const std::vector<ScoreRow>& rows) {
        SCOPED_TRACE(why);
        const ClaimedScore s = contests::claimedScore(code, rows, st);
        // each figure given, and only those
        const auto shown = [](qint64 want, qint64 got) { return want < 0 ? want : got; };
        EXPECT_EQ(shown(points, s.points), points);
        EXPECT_EQ(shown(mults, s.mults), mults);
        EXPECT_EQ(shown(total, s.total), total);
        return s;
    };
    // 14: zones 14 16 05 33, countries DL UA K; 7: zone 14, DL
    const ClaimedScore ww =
        claim("zones and countries per band; the own country counts, /MM by its zone only; 0 "
              "points still a zone and a country; zone \"5\" is \"05\"",
              "cqww", ua3(), 10, 9, 90,
              rows({"DL1ABC 14 14 1 DL EU", "UA3XYZ 14 16 0 UA EU", "DL2ABC 14 14 1 DL EU",
                    "W1AW 14 5 3 K NA", "W2XX 14 05 3 K NA", "DL1ABC/MM 14 33 1 - EU",
                    "DL1ABC 7 14 1 DL EU", "DL1ABC 7 14 0 DL EU - DUPE"}));
    EXPECT_EQ(ww.qsos, 7);
    EXPECT_EQ(ww.breakdown, "10 оч. × 9 мн. = 90");
    // The Helvetia Contest's worked example (USKA rules as conval's rules/helvetia.yaml gives
    // them): cantons and countries per band, a repeat counting nothing.
    ScoreStation dl = ua3();
    dl.call = "DL1XYZ", dl.pref = "DL";
    claim("Helvetia from Germany", "hel", dl, 44, 7, 308,
          rows({"HB9ABC 14 ZH 3 HB EU", "HB9XYZ 14 BE 3 HB EU", "DL1ABC 14 001 0 DL EU",
                "K1ABC 14 002 0 K NA", "HB9ABC 14 ZH 3 HB EU - SSB", "HB9ABC 14 ZH 0 HB EU - DUPE",
                "HB9ABC 7 ZH 3 HB EU"}));
    claim("WPX: prefixes once in the contest", "wpx", ua3(), -1, -1, 9 * 2,
          rows({"DL1ABC 14 001 1 DL EU DL1", "DL1XYZ 7 002 2 DL EU DL1",
                "JA1XYZ 7 003 6 JA AS JA1"}));
    claim("VK/ZL: prefixes per band, none from a QSO outside Oceania", "vkzl", ua3(), -1, -1, 3 * 2,
          rows({"VK2ABC 14 001 1 VK OC VK2", "VK2XYZ 21 002 2 VK OC VK2",
                "DL1ABC 21 003 0 DL EU DL1"}));
    claim("IARU: zone 28 on CW and on SSB, the society once", "iaru", ua3(), -1, -1, 7 * 3,
          rows({"DL1ABC 14 28 3 DL EU DL1", "DL1ABC 14 28 3 DL EU DL1 SSB",
                "DA0HQ 14 DARC 1 DL EU DA0 SSB"}));
    claim(
        "ARRL 10 m: per mode only, whatever the band", "arrl10", ua3(), -1, -1, 10 * 3,
        rows({"K1ABC 28 MA 4 K NA K1", "K1XYZ 28 MA 2 K NA K1 SSB", "DL1ABC 28 001 4 DL EU DL1"}));
    // 80 m: W1 W6 x4 = 8; 40 m: JA1 x3 = 3; 20 m: UA0 UA9 x2 = 4
    claim("WAE: bands weighed, call areas apart, QTCs added, Europe nothing", "wae", ua3("", 10),
          7 + 10, 15, 17 * 15,
          rows({"W1AW 3,5 001 1 K NA W1", "K1ABC 3,5 002 1 K NA K1", "K3ABC/1 3,5 003 1 K NA K1",
                "W6XX 3,5 004 1 K NA W6", "JA1XYZ 7 005 1 JA AS JA1", "UA0AA 14 006 1 UA9 AS UA0",
                "UA9AA 14 007 1 UA9 AS UA9", "DL1ABC 14 008 0 DL EU DL1"}));
    claim("ARI: provinces TO CA, countries DL and the own UA", "ari", ua3(), -1, -1, 21 * 4,
          rows({"I1ABC 14 TO 10 I EU I1", "IS0ABC 14 CA 10 IS EU IS0", "DL1ABC 14 001 1 DL EU DL1",
                "UA3XYZ 14 002 0 UA EU UA3"}));
    claim("HA: the county, not the country", "HA", ua3(), -1, -1, 12 * 2,
          rows({"HA1ABC 14 GY 10 HA EU HA1", "DL1ABC 14 001 2 DL EU DL1"}));
    // AN, ON4, ON5, S5 (a member the old list lacked); G no member now; UA scores nothing
    claim("UBA by the sponsor's list", "uba", ua3(), 10 + 10 + 3 + 1 + 0, 4, -1,
          rows({"ON4ABC 14 001AN 10 ON EU ON4", "ON5XYZ 14 002AN 10 ON EU ON5",
                "S51A 14 003 1 S5 EU S51", "G3ABC 14 004 3 G EU G3", "UA3XYZ 14 005 1 UA EU UA3"}));
    claim("PACC: QSOs x provinces, none from outside the Netherlands", "pacc", ua3(), -1, -1, 2 * 2,
          rows({"PA3ABC 14 NH 1 PA EU", "PA3XYZ 7 NH 1 PA EU", "DL1ABC 7 001 0 DL EU"}));
    claim("RSGB: points plus bonuses", "rsgb", ua3(), -1, -1, 12,
          rows({"G3ABC 1,8 001KT 2+10 G EU"}));
    const ScoreRow raem = row("UA1ABC 14 00159N30O 60+100 UA EU");
    claim("RAEM: x1.1 inside the polar circle", "raem", ua3("67N33O"), -1, -1, 176, {raem});
    claim("RAEM further south", "raem", ua3("55N37O"), -1, -1, 160, {raem});
    claim("the championship: oblasts once in the whole contest", "chemp", ua3(), -1, -1, 34 * 2,
          rows({"RA3AA@MA 7 1 11 UA EU", "RA3AB@MA 3,5 1 11 UA EU", "RA9FA@PM 7 2 12 UA EU"}));
}

TEST(ClaimedScore, EveryContestOfTheMenuHasItsSponsorsRules) {
    ScoreRow area = row("DL1ABC@MA 14 KO85 2 DL EU DL1");
    area.mult = "DL1";
    const std::vector<ScoreRow> log = {area, row("DL2ABC 14 15 2 DL EU DL2"),
                                       row("DL3ABC 14 001/1234 2 DL EU DL3")};
    for (const contests::ContestDef& c : contests::catalogue()) {
        const ClaimedScore s = contests::claimedScore(c.code, log, ua3("55N37O"));
        EXPECT_EQ(s.qsos, 3) << c.code;
        EXPECT_GT(s.total, 0) << c.code;
    }
    EXPECT_EQ(contests::claimedScore("nosuch", {area}, ua3()).total, 0);
}

TEST(ClaimedScore, NumericExchangesAreNumbers) {
    for (const auto& [in, out] : {std::pair{"5", "05"}, {"005", "05"}, {"NY", "NY"}, {"", ""}})
        EXPECT_EQ(contests::numericExchange(in), out) << in;
    EXPECT_TRUE(contests::hasNumericExchange("cqww"));
    EXPECT_FALSE(contests::hasNumericExchange("wpx")); // a serial keeps its zeros
}

// Logs typed through the entry line as an operator would: "band call [exchange]" per QSO.
struct ClaimedScoreEntry : EntryFixture {
    void log(const QStringList& qsos) {
        static const QStringList bands = {"1,8", "3,5", "7", "14", "21", "28", "sat"};
        for (const QString& q : qsos) {
            const QStringList f = q.split(' ');
            if (form->curband != f[0]) form->cmbband_Click(int(bands.indexOf(f[0])));
            typeCall(f[1]);
            form->typeText("\r");
            if (f.size() > 2) form->typeText(f[2]);
            form->typeText("\r");
        }
    }
};

// A CQ WW CW log from UA3ABC (zone 16) counted by hand, the sponsor's worked numbers kept in the
// contest notes: points 12 + 14 + 10, zones 7 + 6 + 4, countries 7 + 6 + 3. Perm is European
// Russia (no new country), "5" is zone 05 already worked, /MM counts its zone only.
TEST_F(ClaimedScoreEntry, CqwwMatchesAHandCount) {
    typeOwnCall("UA3ABC");
    ui.queueInput("16");
    form->fire("mnucqww_Click");
    log({"7 DL1ABC",  "7 F5ABC",   "7 UA3XYZ",  "7 UA9FGR",  "7 W1AW",
         "7 JA1XYZ",  "7 DL1ABC",  "7 9A1AA",   "7 UA0AA",   "14 DL1ABC",
         "14 K1ABC",  "14 VK2ABC", "14 UA3XYZ", "14 OH2XX",  "14 ZS6XX",
         "14 W2XX 5", "21 PY2XX",  "21 W6XX",   "21 JA1XYZ", "21 DL1ABC/MM 33"});
    const ClaimedScore s = claimedScoreOfLog(db, "cqww", "UA3ABC", "16");
    EXPECT_EQ(QList<qint64>({s.qsos, s.points, s.mults, s.total}),
              QList<qint64>({19, 36, 33, 1188}));
    EXPECT_EQ(text("lblscore"), "Заявка: 36 оч. × 33 мн. = 1188");
}

// CQ WPX's worked example from a German station: points by continent and band (K1 6 on 80 m,
// 3 on 15 m; EA 2 and 1; DL 1), prefixes once in the contest.
TEST_F(ClaimedScoreEntry, WpxWorkedExample) {
    typeOwnCall("DL1XYZ");
    form->fire("mnuwpx_Click");
    log({"3,5 K1AB 001", "21 K1AB 002", "3,5 EA1ABC 003", "21 EA2ABC 004", "3,5 DL1ABC 005",
         "21 DL1ABC 006"});
    EXPECT_EQ(text("lblscore"), "Заявка: 14 оч. × 4 мн. = 56");
}

TEST_F(ClaimedScoreEntry, ANewOwnCallRescoresTheLog) {
    ui.queueInput("16");
    form->fire("mnucqww_Click");
    typeOwnCall("DL1XX");
    log({"14 DL1ABC", "14 UA3XYZ"}); // 1 each within Europe
    EXPECT_EQ(db.contest.column("SELECT point FROM tbllog ORDER BY rowid"),
              QStringList({"1", "1"}));
    typeOwnCall("UA3ABC");
    EXPECT_EQ(form->owncall, "UA3ABC");
    EXPECT_EQ(loadSession(db.contest).owncall, "UA3ABC");
    EXPECT_EQ(db.contest.column("SELECT point FROM tbllog ORDER BY rowid"),
              QStringList({"1", "0"}));
}

} // namespace hfc::test
