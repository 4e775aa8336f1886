#include "text/keyfilter.h"

namespace hfc {

int filterKey(int keyAscii, const QString& allowed, qsizetype length, int maxLength) {
    const int key = QChar(keyAscii).toUpper().unicode();
    if (key <= 26) return key;
    if (!allowed.contains(QChar(key))) return 0;
    if (maxLength > 0 && length >= maxLength) return 0;
    return key;
}

} // namespace hfc
