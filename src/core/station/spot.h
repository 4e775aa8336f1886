#pragma once
// A DX cluster's spot line, read into its parts, and the contest band a frequency falls in.
// Pure: the session hands lines in, the band map takes spots out.
#include <QString>
#include <QStringView>
#include <optional>

namespace hfc {

struct Spot {
    QString spotter; // "SP5ABC", "DK9IP-#" (a skimmer)
    double kHz = 0;
    QString call;    // upper case
    QString comment; // "CQ", "CW 24 dB 28 WPM CQ"; may be empty
    QString time;    // "1200Z" as the cluster wrote it; empty when the line was cut short
};

// "DX de SPOTTER: FREQ DXCALL comment HHMMZ", the form of every cluster and of the skimmer
// network, with any spacing and whatever follows the time (a locator, a bell). Anything else
// (announcements, prompts, talk, a spot of no sensible call or frequency) gives nothing.
std::optional<Spot> parseSpotLine(QStringView line);

// The band button's text ("1,8", "3,5", "7", "14", "21", "28") of a frequency in a contest band,
// empty outside them (the WARC bands, VHF).
QString bandOfKHz(double kHz);

// The frequency as the band map shows it: kHz with one decimal ("14025.0").
QString formatKHz(double kHz);

} // namespace hfc
