// The points the entry line stores with a QSO and the points the claimed score counts for it
// come from one rule per contest: real QSOs of each rule family logged through the entry line,
// each counted alone. Where the program's original rule fixes the entry line's figure and the
// sponsor now scores otherwise, the row gives the sponsor's figure and the two must differ.
#include "reports/claimedlog.h"
#include "scoringfixture.h"

namespace hfc::test {

struct EntryClaim : ScoringFixture {
    void expectAgreement(std::initializer_list<Qso> qsos) {
        for (const Qso& q : qsos) {
            if (!q.call) {
                const QString item(q.own);
                select(item.section(' ', 0, 0), item.section(' ', 1));
                continue;
            }
            const std::string how = form->contestcode.toStdString() + ": " + q.own + " works " +
                                    q.call + " on " + q.band;
            enter(q);
            ASSERT_EQ(logRows(), 1) << how << ": not logged, " << mark().toStdString();
            const qint64 stored = db.contest.scalar("SELECT point FROM tbllog").toLongLong();
            const qint64 claimed =
                claimedScoreOfLog(db, form->contestcode, q.own, form->myexch).points;
            if (!q.want) {
                EXPECT_EQ(stored, claimed) << how;
            } else {
                EXPECT_EQ(claimed, QByteArray(q.want).toLongLong()) << how;
                EXPECT_NE(stored, claimed) << how << " (the entry line's original rule)";
            }
        }
    }
};

TEST_F(EntryClaim, ContinentAndCountryTables) {
    expectAgreement({
        {"mnucqww 16"},
        {"RA3AA", "DL1ABC", "14"},
        {"RA3AA", "UA3BBB", "14"},
        {"RA3AA", "UA0AA", "14"},
        {"RA3AA", "W1AW", "14"},
        {"mnuwpx"},
        {"RA3AA", "DL1ABC", "7", "001"},
        {"RA3AA", "W1AW", "14", "001"},
        {"DL1ABC", "DL2XYZ", "14", "001"},
        {"mnucqm"},
        {"RA3AA", "JA1XYZ", "14", "001"},
        {"DL1ABC", "RA3AA", "14", "001"},
        {"mnucro"},
        {"RA3AA", "9A1AA", "3,5", "001"},
        {"mnuwae"},
        {"RA3AA", "W1AW", "14", "001"},
        {"RA3AA", "DL1ABC", "14", "001"},
        {"mnueuhf 95"},
        {"RA3AA", "W1AW", "14", "80"},
    });
}

TEST_F(EntryClaim, OrganisingCountries) {
    expectAgreement({
        {"mnurus MA"},
        {"DL1ABC", "RA3BB", "14"},
        {"RA3AA", "DL1ABC/MM", "14", "001"},
        {"mnuok"},
        {"RA3AA", "OK1RR", "14", "APA"},
        {"RA3AA", "DL1ABC", "14", ""},
        {"mnuha"},
        {"RA3AA", "HA5AA", "14", "BP"},
        {"mnupacc"},
        {"RA3AA", "PA3ABC", "14", "NH"},
        {"RA3AA", "DL1ABC", "14", ""},
        {"mnuwag"},
        {"RA3AA", "DL1ABC", "14", "B01"},
        {"mnuchemp"},
        {"RA3AA", "RA9AA", "14", "7 001"},
        {"mnuhol"},
        {"RA3AA", "4X4AA", "7", "F15TA"},
        // the program's original rules on the entry line, the sponsor in the claim
        {"mnuhel"},
        {"RA3AA", "HB9ABC", "14", "ZH", "10"},
        {"RA3AA", "DL1ABC", "14", "001", "1"},
        {"mnuuba"},
        {"RA3AA", "ON4AA", "14", "001AN"},
        {"RA3AA", "SP1ABC", "14", "001", "3"},
        {"RA3AA", "UA3BBB", "14", "001", "0"},
        {"mnulz 29"},
        {"RA3AA", "LZ1AA", "14", nullptr, "10"},
        {"RA3AA", "DL1ABC", "14"},
        {"mnukcj EU"},
        {"RA3AA", "JA1XYZ", "14", "TK", "2"},
    });
}

} // namespace hfc::test
