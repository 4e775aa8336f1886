#include "station/spot.h"

#include <QList>
#include <cmath>

namespace hfc {

namespace {

bool isCallLike(QStringView t) {
    if (t.size() < 3 || t.size() > 14) return false;
    bool digit = false, letter = false;
    for (const QChar c : t) {
        if (c.isDigit() && c.unicode() < 128)
            digit = true;
        else if ((c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z'))
            letter = true;
        else if (c != u'/')
            return false;
    }
    return digit && letter;
}

bool isTime(QStringView t) {
    if (t.size() != 5 || (t[4] != u'Z' && t[4] != u'z')) return false;
    for (int i = 0; i < 4; ++i)
        if (!t[i].isDigit() || t[i].unicode() >= 128) return false;
    return true;
}

} // namespace

std::optional<Spot> parseSpotLine(QStringView line) {
    line = line.trimmed();
    if (!line.startsWith(u"DX de ", Qt::CaseInsensitive)) return std::nullopt;
    const qsizetype colon = line.indexOf(u':', 6);
    if (colon < 0) return std::nullopt;
    Spot s;
    s.spotter = line.mid(6, colon - 6).trimmed().toString();
    if (s.spotter.isEmpty() || s.spotter.contains(u' ')) return std::nullopt;

    // Control characters (a bell after the time, a stray tab) separate words like blanks.
    QList<QStringView> words;
    const QStringView rest = line.mid(colon + 1);
    qsizetype start = -1;
    for (qsizetype i = 0; i <= rest.size(); ++i) {
        const bool blank = i == rest.size() || rest[i].unicode() <= 32;
        if (blank && start >= 0) {
            words.append(rest.mid(start, i - start));
            start = -1;
        } else if (!blank && start < 0) {
            start = i;
        }
    }
    if (words.size() < 2) return std::nullopt;
    bool ok = false;
    s.kHz = words[0].toDouble(&ok);
    if (!ok || !std::isfinite(s.kHz) || s.kHz <= 0) return std::nullopt;
    if (!isCallLike(words[1]) || isTime(words[1])) return std::nullopt;
    s.call = words[1].toString().toUpper();

    // The time is the last word of its shape; a locator or a country some clusters add after
    // it is not part of the comment.
    qsizetype timeAt = -1;
    for (qsizetype i = words.size() - 1; i >= 2; --i) {
        if (isTime(words[i])) {
            timeAt = i;
            break;
        }
    }
    const qsizetype commentEnd = timeAt >= 0 ? timeAt : words.size();
    if (timeAt >= 0) s.time = words[timeAt].toString().toUpper();
    QStringList comment;
    for (qsizetype i = 2; i < commentEnd; ++i) comment << words[i].toString();
    s.comment = comment.join(u' ');
    return s;
}

QString bandOfKHz(double kHz) {
    struct Range {
        double from, to;
        const char* band;
    };
    static constexpr Range ranges[] = {{1800, 2000, "1,8"},  {3500, 4000, "3,5"},
                                       {7000, 7300, "7"},    {14000, 14350, "14"},
                                       {21000, 21450, "21"}, {28000, 29700, "28"}};
    for (const Range& r : ranges)
        if (kHz >= r.from && kHz <= r.to) return QString::fromLatin1(r.band);
    return {};
}

QString formatKHz(double kHz) {
    return QString::number(kHz, 'f', 1);
}

} // namespace hfc
