// Spot lines of clusters and of the skimmer network, and the spot list:
// one spot per call, gone after 30 minutes, walked up and down in frequency.
#include "station/spotlist.h"

#include <gtest/gtest.h>

using namespace hfc;

// Lines as the clusters send them (one with the spotter's locator after the time), from the
// reverse beacon network, with a bell and a CR at the end: spotter, kHz, call|comment|time.
TEST(SpotLine, ReadsClusterAndSkimmerLines) {
    for (const auto& [line, want] :
         {std::pair{
              "DX de OH2BH:      3512.5  JA1XYZ       CQ                             0012Z KP20",
              "OH2BH 3512.5 JA1XYZ|CQ|0012Z"},
          {"DX de W3LPL-2-#: 28019.9  PY2ABC/P      CW 7 dB 31 WPM CQ             1730Z\a\a\r",
           "W3LPL-2-# 28019.9 PY2ABC/P|CW 7 dB 31 WPM CQ|1730Z"}}) {
        SCOPED_TRACE(line);
        const auto s = parseSpotLine(QString::fromLatin1(line));
        ASSERT_TRUE(s.has_value());
        EXPECT_EQ(
            QString("%1 %2 %3|%4|%5").arg(s->spotter).arg(s->kHz).arg(s->call, s->comment, s->time),
            want);
    }
    // A line cut short before the time, a lower-case call, no comment.
    const auto cut = parseSpotLine(u"DX de SP5ZZZ: 21025 dl1abc");
    ASSERT_TRUE(cut.has_value());
    EXPECT_EQ(QStringList({cut->call, cut->comment, cut->time}), QStringList({"DL1ABC", "", ""}));
}

TEST(SpotLine, EverythingElseIsText) {
    for (const char* line : {
             "", "login: ", "To ALL de UA3ABC: QRV 14025 1200Z",
             "DX de UA3ABC: fourteen UA9ABC 1200Z", // no frequency
             "DX de UA3ABC: 14025.0 TEST 1200Z",    // no call: no digit
             "DX de UA3ABC: -14025.0 UA9ABC 1200Z", // no such frequency
             "DX de : 14025.0 UA9ABC 1200Z",        // no spotter
             "DX de UA3ABC 14025.0 UA9ABC 1200Z",   // no colon
         }) {
        EXPECT_FALSE(parseSpotLine(QString::fromLatin1(line)).has_value()) << line;
    }
}

namespace {

struct SpotListTest : ::testing::Test {
    SpotList list;
    QDateTime t0{QDate(2026, 11, 24), QTime(12, 0), Qt::UTC};
    void spot(const char* call, double kHz, qint64 atSecs = 0) {
        Spot s;
        s.call = QString::fromLatin1(call);
        s.kHz = kHz;
        list.add(s, t0.addSecs(atSecs));
    }
    QStringList band(const QString& b) {
        QStringList out;
        for (const BandSpot& s : list.onBand(b)) out << s.call + "@" + formatKHz(s.kHz);
        return out;
    }
    QString next(double from, const QString& call, bool up) {
        const BandSpot* s = list.next("14", from, call, up);
        return s ? s->call : QString("-");
    }
};

} // namespace

TEST_F(SpotListTest, OneSpotPerCallTheNewestWins) {
    spot("UA3ABC", 14025.0);
    spot("DL1ABC", 14010.0);
    spot("JA1XYZ", 21020.0);
    spot("UA3ABC", 14031.2, 60); // moved up the band
    spot("DL1ABC", 21005.0, 90); // moved to another band
    EXPECT_EQ(band("14"), QStringList({"UA3ABC@14031.2"}));
    EXPECT_EQ(band("21"), QStringList({"DL1ABC@21005.0", "JA1XYZ@21020.0"}));
    EXPECT_EQ(list.size(), 3u);
    EXPECT_EQ(SpotList::ageMinutes(list.find("UA3ABC")->heard, t0.addSecs(60 + 179)), 2);
}

TEST_F(SpotListTest, SpotsLeaveThirtyMinutesAfterTheyWereHeard) {
    spot("UA3ABC", 14025.0);
    spot("DL1ABC", 14010.0, 600);
    EXPECT_FALSE(list.prune(t0.addSecs(1799)));
    EXPECT_EQ(list.size(), 2u);
    EXPECT_TRUE(list.prune(t0.addSecs(1800)));
    EXPECT_EQ(band("14"), QStringList({"DL1ABC@14010.0"}));
}

TEST_F(SpotListTest, NextSpotUpAndDownTheBand) {
    spot("K1AR", 14020.0);
    spot("UA3ABC", 14025.0);
    spot("AA1AA", 14025.0); // two calls on one frequency
    spot("JA1XYZ", 14040.0);
    spot("DL1ABC", 21010.0);
    // the first time: the lowest going up, the highest going down
    EXPECT_EQ(next(-1, {}, true), "K1AR");
    EXPECT_EQ(next(-1, {}, false), "JA1XYZ");
    // from a spot taken: both calls of one frequency in turn
    EXPECT_EQ(next(14020.0, "K1AR", true), "AA1AA");
    EXPECT_EQ(next(14025.0, "AA1AA", true), "UA3ABC");
    EXPECT_EQ(next(14025.0, "UA3ABC", true), "JA1XYZ");
    EXPECT_EQ(next(14040.0, "JA1XYZ", true), "-"); // no wrap past the top
    // from a frequency (the radio's): what is on it already is skipped
    EXPECT_EQ(next(14025.02, {}, true), "JA1XYZ");
    EXPECT_EQ(next(14025.0, {}, false), "K1AR");
}
