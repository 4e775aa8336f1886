#include "data/likeprefix.h"

namespace hfc {

QString likePrefix(const QString& prefix) {
    QString out;
    out.reserve(prefix.size() + 2);
    for (const QChar c : prefix) {
        if (c == QLatin1Char('\\') || c == QLatin1Char('%') || c == QLatin1Char('_'))
            out += QLatin1Char('\\');
        out += c;
    }
    out += QLatin1Char('%');
    return out;
}

} // namespace hfc
