#include "keyer/messagetext.h"

namespace hfc {

QString expandMessageText(const QString& text, const MessageFields& fields) {
    if (!text.contains(QLatin1Char('{'))) return text;
    const struct {
        const char* name;
        const QString& value;
    } vars[] = {{"MYCALL", fields.mycall},
                {"CALL", fields.call},
                {"NR", fields.nr},
                {"RST", fields.rst},
                {"EXCH", fields.exch}};
    QString out;
    out.reserve(text.size() + 16);
    qsizetype i = 0;
    while (i < text.size()) {
        const qsizetype open = text.indexOf(QLatin1Char('{'), i);
        const qsizetype close = open < 0 ? -1 : text.indexOf(QLatin1Char('}'), open);
        if (close < 0) {
            out += QStringView(text).mid(i);
            break;
        }
        out += QStringView(text).mid(i, open - i);
        const QStringView name = QStringView(text).mid(open + 1, close - open - 1);
        const QString* value = nullptr;
        for (const auto& v : vars)
            if (name.compare(QLatin1String(v.name), Qt::CaseInsensitive) == 0) value = &v.value;
        if (value) {
            out += *value;
        } else {
            out += QStringView(text).mid(open, close - open + 1);
        }
        i = close + 1;
    }
    return out;
}

} // namespace hfc
