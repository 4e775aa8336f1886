#include "country/russia.h"

namespace hfc {

namespace {
bool isDigit(QChar c) {
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}
} // namespace

void refineRussianArea(const QString& call, QString& pref, QString& kont) {
    if (call.contains(QLatin1Char('/'))) {
        switch (call.back().unicode()) {
        case '9':
        case '0':
            pref = QStringLiteral("UA9");
            kont = QStringLiteral("AS");
            break;
        case '1':
        case '3':
        case '4':
        case '6':
            pref = QStringLiteral("UA");
            kont = QStringLiteral("EU");
            break;
        case '2':
            pref = QStringLiteral("UA2");
            kont = QStringLiteral("EU");
            break;
        default:
            break;
        }
    }
}

QString russianDistrictKey(const QString& call) {
    if (call.size() <= 3) return {};
    if (isDigit(call[2])) return call.mid(2, 2);
    if (isDigit(call[1])) return call.mid(1, 2);
    return {};
}

QString cqmPrefix(const QString& call, const QString& pref) {
    if (call.size() < 4) return pref;
    const QChar d = call[2];
    const QChar l = call[3];
    auto in = [l](const char* letters) {
        for (const char* p = letters; *p; ++p)
            if (l == QLatin1Char(*p)) return true;
        return false;
    };
    bool own = false;
    switch (d.unicode()) {
    case '1':
        own = in("N");
        break;
    case '4':
        own = in("SPUWY");
        break;
    case '6':
        own = in("IEJPQWXY");
        break;
    case '9':
        own = in("XWZ");
        break;
    case '0':
        own = in("OQWY");
        break;
    default:
        break;
    }
    return own ? QStringLiteral("UA") + d + l : pref;
}

QString padZone(const QString& zone) {
    return zone.size() == 1 ? QLatin1Char('0') + zone : zone;
}

QString eu13Points(const QString& kont) {
    return kont == QLatin1String("EU") ? QStringLiteral("1") : QStringLiteral("3");
}

const char* const EuropeanList =
    "CT CU DL EA EA6EI F  G  GD GI GJ GM GU GW I  IS LX OE OH OH0OJ0OZ PA SM SV SV5SV9SY TK ";

bool inEuropeanList(const QString& pref) {
    QString key = pref;
    while (key.size() < 3) key += QLatin1Char(' ');
    const QString list = QString::fromLatin1(EuropeanList);
    for (qsizetype at = 0; at + 3 <= list.size(); at += 3)
        if (QStringView(list).mid(at, 3) == key) return true;
    return false;
}

} // namespace hfc
