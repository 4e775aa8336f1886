#pragma once
// Text to Morse element string. Each digit of the result is one event on the key line:
// "1" dot + 1-unit gap, "3" dash + 1-unit gap, "0" 2 units of silence. A character's elements are
// followed by "0", which makes the 3-unit letter gap and, with a space's own "0", the 7-unit word
// gap.
#include <QString>

namespace hfc {

// Element code of a Windows-1251 byte, or nullptr when the byte has no entry. Latin and Cyrillic
// letters in both cases share the entry of their Russian-convention Latin equivalent.
const char* morseCodeForByte(unsigned char byte);

// Builds the element string of a message (cwsend). `cwchar` is the code of the character converted
// last; a character with no entry (or not representable in Windows-1251) leaves it unchanged and
// is therefore sent as a repeat of the character before it, even across messages, which is why the
// caller keeps it for the whole run.
QString buildCwCode(const QString& text, QString& cwchar);

} // namespace hfc
