#pragma once
// The prefix of a callsign as prefix-counting contests count it (stored in tbllog.PRF).
#include <QString>

namespace hfc {

// The prefix of call, cut the way the WPX rules cut it:
//   "UA3ABC" -> "UA3", "9A1AA" -> "9A1", "LY2000X" -> "LY2000" (the whole digit run),
//   "RAEM" -> "RA0" (no digit: the first two characters and "0"), "F/UA3ABC" -> "F0",
//   "OH2/UA3ABC" -> "OH2" (the shorter part is the designator), "UA3ABC/P" -> "UA3" (portable,
//   mobile, QRP, lighthouse… suffixes are ignored), "UA3ABC/9" -> "UA9" (a lone digit replaces
//   the call area).
// Calls of one character or less have no prefix: "" is returned and the caller keeps its value.
QString callPrefix(const QString& call);

} // namespace hfc
