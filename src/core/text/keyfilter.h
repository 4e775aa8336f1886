#pragma once
// The key filter of the entry boxes (the callsign, the reports, the reference windows): a typed
// character is taken in upper case, and a printable character outside the box's allowed set, or
// beyond its length, is refused.
#include <QString>

namespace hfc {

// The key code to pass on for keyAscii typed into a box holding length characters: the upper-case
// form, or 0 when refused. Control keys (codes up to 26: Enter, Backspace) always pass.
// maxLength 0 means no limit.
int filterKey(int keyAscii, const QString& allowed, qsizetype length, int maxLength);

} // namespace hfc
