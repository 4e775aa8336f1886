#pragma once
// Keying devices (cwdaemon, a Winkeyer, a radio's own keyer) are given characters, not elements.
// A message's element string is put back into the characters such a device knows, so that every
// backend sends the same Morse as the DTR keyer: Cyrillic letters, cut zeros and a character
// repeated for want of an entry all come out as the elements the DTR line would have keyed.
#include <QString>
#include <QtGlobal>

namespace hfc {

// What each device takes as plain text. cwdaemon reads "+", "-" and "~" as speed and spacing
// commands, so those never reach it as characters.
inline constexpr const char* kCwdaemonAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789/?.,='():\"@";
inline constexpr const char* kWinkeyerAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789/?.,='()-:";
inline constexpr const char* kRigAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789/?.,=";

// The international element code of an ASCII character ("13" for 'A'), or nullptr.
const char* internationalCode(char c);

// The characters of `alphabet` that send the element string built by buildCwCode. A character
// whose elements no character of the alphabet sends (Ч, Ш, Э, Ю, Я, the Russian "." and ";") is
// left out: a device cannot key it, and a wrong letter on the air is worse than a missing one.
QString textForCwCode(const QString& cwcode, const char* alphabet);

// Units from the first element to the end of the last element's gap: what the DTR keyer keys
// before its PTT tail (the last digit, always a character's trailing "0", is not played).
qint64 unitsOfCwCode(const QString& cwcode);

// Whole words per minute for a unit in keyer iterations, kept within [lo, hi]: the devices take
// whole WPM in a range of their own.
int deviceWpm(qint64 unitIterations, int lo, int hi);

} // namespace hfc
