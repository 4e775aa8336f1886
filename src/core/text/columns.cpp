#include "text/columns.h"

namespace hfc {

QString padCut(const QString& value, int blanks, int keep) {
    return (value + QString(blanks, QLatin1Char(' '))).left(keep);
}

double leadingNumber(const QString& text) {
    qsizetype i = 0;
    while (i < text.size() && (text[i] == QLatin1Char(' ') || text[i] == QLatin1Char('\t'))) ++i;
    const qsizetype start = i;
    if (i < text.size() && (text[i] == QLatin1Char('+') || text[i] == QLatin1Char('-'))) ++i;
    bool digits = false;
    while (i < text.size() && text[i].isDigit() && text[i].unicode() < 0x80) ++i, digits = true;
    if (i < text.size() && text[i] == QLatin1Char('.')) {
        ++i;
        while (i < text.size() && text[i].isDigit() && text[i].unicode() < 0x80) ++i, digits = true;
    }
    if (!digits) return 0;
    return text.mid(start, i - start).toDouble();
}

} // namespace hfc
