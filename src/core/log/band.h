#pragma once
// The bands of the band selector, once: the text a log row stores, the kHz edges, the ADIF and
// Cabrillo names, where the radio goes for CW and SSB, and the FT-1000MP command block.
#include <QByteArray>
#include <QString>
#include <array>
#include <optional>

namespace hfc {

// In the order of the band buttons (cmbband(0) … cmbband(6)).
enum class Band { B160, B80, B40, B20, B15, B10, Sat };

struct BandInfo {
    Band band;
    const char* text;     // as stored in bband: "1,8", "3,5", "7", "14", "21", "28", "sat"
    int lowKhz, highKhz;  // the amateur band; 0 for "sat", which has no HF edges
    const char* adif;     // ADIF 3 band enumeration ("160m")
    const char* cabrillo; // Cabrillo CATEGORY-BAND ("160M")
    int cwKhz, ssbKhz;    // where a band button sends the radio when it has no frequency there
};

inline constexpr int kBandCount = 7;
const std::array<BandInfo, kBandCount>& bandTable();
const BandInfo& bandInfo(Band b);
inline int bandIndex(Band b) {
    return int(b);
}
// The band of a stored bband text; nullopt for any other text.
std::optional<Band> bandFromText(const QString& bband);
// The HF contest band a frequency lies in (edges included); nullopt outside them.
std::optional<Band> bandOfKhz(double khz);

// The transceiver's five-byte frequency command: the frequency in packed BCD in units of 10 Hz,
// least significant byte first, then the set-frequency opcode 10.
QByteArray ft1000mpFrequencyCommand(int khz);

// A frequency as the window shows it and a QSO stores it: kHz with one decimal ("21025.0").
QString khzText(double hz);

} // namespace hfc
