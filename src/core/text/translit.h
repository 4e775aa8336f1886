#pragma once
// Contest robots and other loggers read 7-bit text only, while station names and addresses are
// typed in Russian. Cyrillic is written in Latin letters by the table of ICAO Doc 9303 (the one
// Russian passports use since 2013): Ж ZH, Х KH, Ц TS, Ч CH, Ш SH, Щ SHCH, Ъ IE, Ы Y, Ь dropped,
// Э E, Ю IU, Я IA, Й I, Ё E; Ukrainian and Belarusian letters by the same table (Є IE, І I, Ї I,
// Ґ G, Ў U).
#include <QString>

namespace hfc {

// Printable ASCII only: Cyrillic transliterated (a capital keeps its case: "Жуков" gives
// "Zhukov", "ЖУКОВ" gives "ZHUKOV"), "№" as "N", tabs and line breaks as blanks, every other
// character outside ASCII 32..126 as "?".
QString toAsciiLatin(const QString& text);

} // namespace hfc
