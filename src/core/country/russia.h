#pragma once
// Country rules that follow from the callsign alone: the Russian call areas, the district key,
// the call areas that count as multipliers in CQ-M, the zone padding and the European list.
#include <QString>

namespace hfc {

// The Russian entity and continent of a call with a portable call area: a call holding "/" is
// decided by its last character ("9"/"0" -> UA9, "1"/"3"/"4"/"6" -> UA, "2" -> UA2, so RA9AA/3
// is European Russia). Other calls keep pref and kont as cty.dat gave them: UA9FGR is in
// Europe by its prefix row, whatever its digit says.
void refineRussianArea(const QString& call, QString& pref, QString& kont);

// The key of tblrus for a Russian call: the call-area digit and the letter after it, taken from
// the third and fourth characters when the third is a digit ("RA3ABC" -> "3A"), else from the
// second and third when the second is ("R3ABC" -> "3A"). "" for calls of three characters or
// less and calls without a digit there.
QString russianDistrictKey(const QString& call);

// The CQ-M multiplier for Russian call areas that count on their own ("UA4S", "UA9X", …); any
// other call keeps pref.
QString cqmPrefix(const QString& call, const QString& pref);

// A one-digit zone as two digits ("3" -> "03"); other texts unchanged.
QString padZone(const QString& zone);

// QSO points by continent: "1" in Europe, "3" elsewhere.
QString eu13Points(const QString& kont);

// The fixed list of European prefixes, 29 entries of three characters each.
extern const char* const EuropeanList;
// Whether pref, padded with blanks to three characters, is one of the list's entries.
bool inEuropeanList(const QString& pref);

} // namespace hfc
