#include "text/translit.h"

namespace hfc {

namespace {

// Lower-case Latin for one lower-case Cyrillic letter; nullptr when the letter is not in the
// table. An empty result (soft sign) drops the letter.
const char* latinFor(char16_t c) {
    static const char* const kRussian[] = {
        "a", "b", "v", "g", "d", "e",  "zh", "z",  "i",  "i",    "k",  "l", "m", "n", "o",  "p",
        "r", "s", "t", "u", "f", "kh", "ts", "ch", "sh", "shch", "ie", "y", "",  "e", "iu", "ia"};
    if (c >= u'а' && c <= u'я') return kRussian[c - u'а'];
    switch (c) {
    case u'ё':
        return "e";
    case u'є':
        return "ie";
    case u'і':
        return "i";
    case u'ї':
        return "i";
    case u'ґ':
        return "g";
    case u'ў':
        return "u";
    default:
        return nullptr;
    }
}

// The lower-case form of a Cyrillic capital, or 0 when c is not one the table knows.
char16_t lowerCyrillic(char16_t c) {
    if (c >= u'А' && c <= u'Я') return char16_t(c + (u'а' - u'А'));
    switch (c) {
    case u'Ё':
        return u'ё';
    case u'Є':
        return u'є';
    case u'І':
        return u'і';
    case u'Ї':
        return u'ї';
    case u'Ґ':
        return u'ґ';
    case u'Ў':
        return u'ў';
    default:
        return 0;
    }
}

bool isUpperLetter(QChar c) {
    return c.isLetter() && c.isUpper();
}

} // namespace

QString toAsciiLatin(const QString& text) {
    QString out;
    out.reserve(text.size() + text.size() / 4);
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t c = text.at(i).unicode();
        if (c >= 32 && c <= 126) {
            out += QChar(c);
            continue;
        }
        if (c == u'\t' || c == u'\r' || c == u'\n') {
            out += QLatin1Char(' ');
            continue;
        }
        if (c == u'№') {
            out += QLatin1Char('N');
            continue;
        }
        const char16_t lower = lowerCyrillic(c);
        const char* latin = latinFor(lower ? lower : c);
        if (!latin) {
            out += QLatin1Char('?');
            continue;
        }
        QString piece = QString::fromLatin1(latin);
        if (lower && !piece.isEmpty()) {
            // A capital inside an all-capitals word stays all capitals ("ЩУКИН" → "SHCHUKIN");
            // otherwise only its first Latin letter is a capital ("Щукин" → "Shchukin").
            const bool nextUpper = i + 1 < text.size() && isUpperLetter(text.at(i + 1));
            const bool prevUpper = i > 0 && isUpperLetter(text.at(i - 1));
            const bool nextLetter = i + 1 < text.size() && text.at(i + 1).isLetter();
            if (nextUpper || (prevUpper && !nextLetter))
                piece = piece.toUpper();
            else
                piece[0] = piece[0].toUpper();
        }
        out += piece;
    }
    return out;
}

} // namespace hfc
