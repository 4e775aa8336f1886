#pragma once
// Country groups and call shapes that the points rules and the exchange checks share. Countries
// are the entity prefixes of the prefix table (callpref).
#include <QString>

namespace hfc::contests {

enum class Group {
    Russia,  // UA UA2 UA9, and the CQ-M call areas built from them (UA4S, …)
    Belarus, // EU
    Japan,   // JA JD/m JD/o
    Italy,   // I IS IT9 IG9
    Spain,   // EA EA6 EA8 EA9
    France,  // F, TK and the overseas departments and territories (F…)
    UK,      // G GD GI GJ GM GM/s GU GW
    Scand,   // the Nordic countries of SAC
    WVE,     // K VE KL KH6: stations that send a state or province
};

bool inGroup(const QString& pref, Group g);

bool isMaritime(const QString& call); // "/MM"
bool isPortable(const QString& call); // "/P", "/M", "/A", "/AM" or "/MM"
bool isLowBand(const QString& band);  // "1,8", "3,5", "7"

// Where a first multiplier counts once: on each band (most contests), once in the whole contest
// (TOPS, WPX) or once per sent report on any band (VK/ZL).
enum class MultScope { Band, Contest, SentReport };
MultScope multScope(const QString& contestcode);

// The call-area digit of a prefix cut ("UA3" -> '3'); a null QChar when it ends in none.
QChar areaDigit(const QString& prf);

} // namespace hfc::contests
