#pragma once
// Report files are single-byte Windows-1251 text, as the Russian contest committees expect; the
// DOS code page 866 is offered for tools that still read only that.
#include <QByteArray>
#include <QString>

namespace hfc {

// Windows-1251 bytes of a text; every character the code page cannot hold becomes one "?".
QByteArray toWin1251(const QString& text);

QString fromWin1251(const QByteArray& bytes);

// Windows-1251 to code page 866, one byte for one byte (so a line keeps its length); a character
// 866 does not have becomes "?".
QByteArray win1251ToCp866(const QByteArray& bytes);

} // namespace hfc
