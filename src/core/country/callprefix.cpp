#include "country/callprefix.h"

#include <QStringList>

namespace hfc {

namespace {

bool isDigit(QChar c) {
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

bool hasDigit(const QString& s) {
    for (const QChar c : s)
        if (isDigit(c)) return true;
    return false;
}

// Suffixes that say how the station operates, not where: they never make a prefix.
bool isOperatingSuffix(const QString& s) {
    static const QStringList suffixes = {"P",   "M",  "MM", "AM", "A",  "QRP", "QRPP", "LH",
                                         "LGT", "LS", "LV", "FF", "YL", "J",   "B",    "R"};
    return suffixes.contains(s);
}

// The prefix of a call without "/": up to the first digit after the first character and the
// digits that follow it; no digit there gives the first two characters and "0".
QString plainPrefix(const QString& s) {
    qsizetype i = 1;
    while (i < s.size() && !isDigit(s[i])) ++i;
    if (i >= s.size()) return s.left(2) + QLatin1Char('0');
    while (i + 1 < s.size() && isDigit(s[i + 1])) ++i;
    return s.left(i + 1);
}

// The letters of a prefix without its trailing digits ("UA3" -> "UA", "LY2000" -> "LY").
QString prefixLetters(const QString& prefix) {
    qsizetype n = prefix.size();
    while (n > 1 && isDigit(prefix[n - 1])) --n;
    return prefix.left(n);
}

} // namespace

QString callPrefix(const QString& call) {
    if (call.size() <= 1) return {};
    QStringList parts = call.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    // Drop the operating suffixes after the call; a designator in front of it is kept.
    for (qsizetype i = parts.size() - 1; i >= 1; --i)
        if (isOperatingSuffix(parts[i])) parts.removeAt(i);
    if (parts.isEmpty()) return {};
    if (parts.size() == 1) return plainPrefix(parts[0]);

    const QString& home = parts[0];
    const QString& other = parts[1];
    // "UA3ABC/9": the same call operated from another call area.
    if (other.size() == 1 && isDigit(other[0])) return prefixLetters(plainPrefix(home)) + other;
    // Otherwise the shorter part is the place the station operates from ("OH2/UA3ABC",
    // "K1ABC/VP9"); on a tie the part in front wins, as it is written first.
    const QString& designator = other.size() < home.size() ? other : home;
    if (!hasDigit(designator)) return designator + QLatin1Char('0');
    return plainPrefix(designator);
}

} // namespace hfc
