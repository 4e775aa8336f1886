#include "data/csv.h"

namespace hfc {

std::vector<QStringList> parseCsv(const QString& text) {
    std::vector<QStringList> rows;
    QStringList row;
    QString field;
    bool quoted = false, any = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (quoted) {
            if (c == QLatin1Char('"')) {
                if (i + 1 < text.size() && text[i + 1] == QLatin1Char('"')) {
                    field += c;
                    ++i;
                } else {
                    quoted = false;
                }
            } else {
                field += c;
            }
            continue;
        }
        if (c == QLatin1Char('"')) {
            quoted = true;
            any = true;
        } else if (c == QLatin1Char(',')) {
            row << field;
            field.clear();
            any = true;
        } else if (c == QLatin1Char('\n') || c == QLatin1Char('\r')) {
            if (c == QLatin1Char('\r') && i + 1 < text.size() && text[i + 1] == QLatin1Char('\n'))
                ++i;
            if (any || !field.isEmpty()) {
                row << field;
                rows.push_back(row);
            }
            row.clear();
            field.clear();
            any = false;
        } else {
            field += c;
            any = true;
        }
    }
    if (any || !field.isEmpty()) {
        row << field;
        rows.push_back(row);
    }
    return rows;
}

} // namespace hfc
