#include "keyer/morsetext.h"

#include "keyer/unitclock.h"

#include <cmath>

namespace hfc {

namespace {

struct Intl {
    char c;
    const char* code;
};

const Intl kInternational[] = {
    {'A', "13"},     {'B', "3111"},   {'C', "3131"},    {'D', "311"},    {'E', "1"},
    {'F', "1131"},   {'G', "331"},    {'H', "1111"},    {'I', "11"},     {'J', "1333"},
    {'K', "313"},    {'L', "1311"},   {'M', "33"},      {'N', "31"},     {'O', "333"},
    {'P', "1331"},   {'Q', "3313"},   {'R', "131"},     {'S', "111"},    {'T', "3"},
    {'U', "113"},    {'V', "1113"},   {'W', "133"},     {'X', "3113"},   {'Y', "3133"},
    {'Z', "3311"},   {'0', "33333"},  {'1', "13333"},   {'2', "11333"},  {'3', "11133"},
    {'4', "11113"},  {'5', "11111"},  {'6', "31111"},   {'7', "33111"},  {'8', "33311"},
    {'9', "33331"},  {'/', "31131"},  {'?', "113311"},  {'.', "131313"}, {',', "331133"},
    {'=', "31113"},  {'-', "311113"}, {'\'', "133331"}, {'(', "31331"},  {')', "313313"},
    {':', "333111"}, {'"', "131131"}, {'@', "133131"},  {'+', "13131"},
};

QChar charFor(const QString& code, const char* alphabet) {
    for (const char* a = alphabet; *a; ++a) {
        const char* c = internationalCode(*a);
        if (c && code == QLatin1String(c)) return QLatin1Char(*a);
    }
    return {};
}

} // namespace

const char* internationalCode(char c) {
    for (const Intl& i : kInternational)
        if (i.c == c) return i.code;
    return nullptr;
}

QString textForCwCode(const QString& cwcode, const char* alphabet) {
    // buildCwCode writes each character as its code and a "0"; a space's code is "0" itself, and
    // a character with nothing to repeat is the "0" alone. So a "0" where a code would start is a
    // space when another "0" follows and nothing otherwise.
    QString out;
    qsizetype i = 0;
    const qsizetype n = cwcode.size();
    while (i < n) {
        if (cwcode.at(i) == QLatin1Char('0')) {
            if (i + 1 < n && cwcode.at(i + 1) == QLatin1Char('0')) {
                out += QLatin1Char(' ');
                i += 2;
            } else {
                ++i;
            }
            continue;
        }
        const qsizetype end = cwcode.indexOf(QLatin1Char('0'), i);
        const QString code = cwcode.mid(i, end < 0 ? -1 : end - i);
        const QChar c = charFor(code, alphabet);
        if (!c.isNull()) out += c;
        i = end < 0 ? n : end + 1;
    }
    return out;
}

qint64 unitsOfCwCode(const QString& cwcode) {
    qint64 units = 0;
    for (qsizetype i = 0; i + 1 < cwcode.size(); ++i) {
        const int d = cwcode.at(i).digitValue();
        units += d > 0 ? d + 1 : 2;
    }
    return units;
}

int deviceWpm(qint64 unitIterations, int lo, int hi) {
    const double wpm = wpmForUnit(unitIterations);
    return qBound(lo, int(std::lround(wpm)), hi);
}

} // namespace hfc
