#include "log/band.h"

#include <cmath>

namespace hfc {

const std::array<BandInfo, kBandCount>& bandTable() {
    // The CW and SSB points are those the FT-1000MP command has always used, so both ways of
    // moving a radio agree.
    static constexpr std::array<BandInfo, kBandCount> table = {{
        {Band::B160, "1,8", 1800, 2000, "160m", "160M", 1825, 1840},
        {Band::B80, "3,5", 3500, 4000, "80m", "80M", 3510, 3600},
        {Band::B40, "7", 7000, 7300, "40m", "40M", 7010, 7040},
        {Band::B20, "14", 14000, 14350, "20m", "20M", 14010, 14150},
        {Band::B15, "21", 21000, 21450, "15m", "15M", 21010, 21150},
        {Band::B10, "28", 28000, 29700, "10m", "10M", 28010, 28500},
        {Band::Sat, "sat", 0, 0, "", "", 0, 0},
    }};
    return table;
}

const BandInfo& bandInfo(Band b) {
    return bandTable()[size_t(bandIndex(b))];
}

std::optional<Band> bandFromText(const QString& bband) {
    for (const BandInfo& b : bandTable())
        if (bband == QLatin1String(b.text)) return b.band;
    return std::nullopt;
}

std::optional<Band> bandOfKhz(double khz) {
    for (const BandInfo& b : bandTable())
        if (b.highKhz > 0 && khz >= b.lowKhz && khz <= b.highKhz) return b.band;
    return std::nullopt;
}

QByteArray ft1000mpFrequencyCommand(int khz) {
    long long tens = static_cast<long long>(khz) * 100; // units of 10 Hz
    QByteArray block;
    for (int i = 0; i < 4; ++i) {
        const int low = int(tens % 10);
        tens /= 10;
        const int high = int(tens % 10);
        tens /= 10;
        block.append(char(high << 4 | low));
    }
    block.append(char(10));
    return block;
}

QString khzText(double hz) {
    return QString::number(std::round(hz / 100.0) / 10.0, 'f', 1);
}

} // namespace hfc
