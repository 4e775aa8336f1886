// The one band table: texts, edges, names, and the FT-1000MP blocks built from the CW and SSB
// points, which must be the bytes the band buttons have always sent.
#include "log/band.h"

#include <gtest/gtest.h>

using namespace hfc;

namespace {
QByteArray bytes(std::initializer_list<int> b) {
    QByteArray out;
    for (int v : b) out.append(char(v));
    return out;
}
} // namespace

TEST(BandTable, CommandBlocksAreTheTransceiversBytesForEveryBandAndMode) {
    const QByteArray cw[6] = {bytes({0, 37, 24, 0, 10}),  bytes({0, 16, 53, 0, 10}),
                              bytes({0, 16, 112, 0, 10}), bytes({0, 16, 64, 1, 10}),
                              bytes({0, 16, 16, 2, 10}),  bytes({0, 16, 128, 2, 10})};
    const QByteArray ssb[6] = {bytes({0, 64, 24, 0, 10}),  bytes({0, 0, 54, 0, 10}),
                               bytes({0, 64, 112, 0, 10}), bytes({0, 80, 65, 1, 10}),
                               bytes({0, 80, 17, 2, 10}),  bytes({0, 0, 133, 2, 10})};
    for (int i = 0; i < 6; ++i) {
        const BandInfo& b = bandTable()[size_t(i)];
        EXPECT_EQ(ft1000mpFrequencyCommand(b.cwKhz), cw[i]) << b.text;
        EXPECT_EQ(ft1000mpFrequencyCommand(b.ssbKhz), ssb[i]) << b.text;
        // a band's own points lie in it
        EXPECT_EQ(bandOfKhz(b.cwKhz), b.band);
        EXPECT_EQ(bandOfKhz(b.ssbKhz), b.band);
    }
}

TEST(BandTable, TextsEdgesAndNames) {
    const char* texts[kBandCount] = {"1,8", "3,5", "7", "14", "21", "28", "sat"};
    for (int i = 0; i < kBandCount; ++i) {
        ASSERT_EQ(bandFromText(texts[i]), bandTable()[size_t(i)].band);
        EXPECT_EQ(bandIndex(*bandFromText(texts[i])), i);
    }
    EXPECT_FALSE(bandFromText("1.8"));
    EXPECT_STREQ(bandInfo(Band::B20).adif, "20m");
    EXPECT_STREQ(bandInfo(Band::B160).cabrillo, "160M");

    EXPECT_EQ(bandOfKhz(14000.0), Band::B20); // edges belong to the band
    EXPECT_EQ(bandOfKhz(14350.0), Band::B20);
    EXPECT_FALSE(bandOfKhz(14350.1));
    EXPECT_FALSE(bandOfKhz(13999.9));
    EXPECT_FALSE(bandOfKhz(10125)); // 30 m is no contest band
    EXPECT_FALSE(bandOfKhz(0));     // "sat" has no edges to fall into
}

TEST(BandTable, FrequencyTextIsKhzWithOneDecimal) {
    EXPECT_EQ(khzText(14025560), "14025.6");
    EXPECT_EQ(khzText(1830040), "1830.0");
}
