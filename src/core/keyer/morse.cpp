#include "keyer/morse.h"

#include <QStringDecoder>
#include <QStringEncoder>

#include <array>

namespace hfc {

namespace {

struct Entry {
    const char* code;
    const char* bytes; // Windows-1251 byte values sharing the code, zero-terminated
};

// Russian convention: "." is six dots, "," takes the international full stop, "!" the
// international comma, "№" the slash; brackets share one code.
const Entry kEntries[] = {
    {"0", "\x20"},
    {"13", "\x41\x61\xC0\xE0"},
    {"3111", "\x42\x62\xC1\xE1"},
    {"133", "\x57\x77\xC2\xE2"},
    {"331", "\x47\x67\xC3\xE3"},
    {"311", "\x44\x64\xC4\xE4"},
    {"1", "\x45\x65\xC5\xE5"},
    {"1113", "\x56\x76\xC6\xE6"},
    {"3311", "\x5A\x7A\xC7\xE7"},
    {"11", "\x49\x69\xC8\xE8"},
    {"1333", "\x4A\x6A\xC9\xE9"},
    {"313", "\x4B\x6B\xCA\xEA"},
    {"1311", "\x4C\x6C\xCB\xEB"},
    {"33", "\x4D\x6D\xCC\xEC"},
    {"31", "\x4E\x6E\xCD\xED"},
    {"333", "\x4F\x6F\xCE\xEE"},
    {"1331", "\x50\x70\xCF\xEF"},
    {"131", "\x52\x72\xD0\xF0"},
    {"111", "\x53\x73\xD1\xF1"},
    {"3", "\x54\x74\xD2\xF2"},
    {"113", "\x55\x75\xD3\xF3"},
    {"1131", "\x46\x66\xD4\xF4"},
    {"1111", "\x48\x68\xD5\xF5"},
    {"3131", "\x43\x63\xD6\xF6"},
    {"3331", "\xD7\xF7"},
    {"3333", "\xD8\xF8"},
    {"3313", "\x51\x71\xD9\xF9"},
    {"3133", "\x59\x79\xDB\xFB"},
    {"3113", "\x58\x78\xDC\xFC"},
    {"11311", "\xDD\xFD"},
    {"1133", "\xDE\xFE"},
    {"1313", "\xDF\xFF"},
    {"331133", "\x21"},
    {"131131", "\x22"},
    {"133331", "\x27"},
    {"313313", "\x28\x29"},
    {"131313", "\x2C"},
    {"311113", "\x2D"},
    {"111111", "\x2E"},
    {"31131", "\x2F\xB9"},
    {"33333", "\x30"},
    {"13333", "\x31"},
    {"11333", "\x32"},
    {"11133", "\x33"},
    {"11113", "\x34"},
    {"11111", "\x35"},
    {"31111", "\x36"},
    {"33111", "\x37"},
    {"33311", "\x38"},
    {"33331", "\x39"},
    {"333111", "\x3A"},
    {"31313", "\x3B"},
    {"113311", "\x3F"},
};

using ByteTable = std::array<const char*, 256>;

const ByteTable& byteTable() {
    static const ByteTable table = [] {
        ByteTable t{};
        for (const Entry& e : kEntries)
            for (const char* b = e.bytes; *b; ++b) t[static_cast<unsigned char>(*b)] = e.code;
        return t;
    }();
    return table;
}

// What each byte decodes to, so that an encoder's substitution byte for a character outside the
// code page is not taken for a real character ("?" has an entry of its own).
const std::array<char16_t, 256>& decodedBytes() {
    static const std::array<char16_t, 256> table = [] {
        std::array<char16_t, 256> t{};
        QStringDecoder dec("windows-1251");
        for (int i = 0; i < 256; ++i) {
            const char byte = static_cast<char>(i);
            const QString s = dec.decode(QByteArrayView(&byte, 1));
            t[i] = s.size() == 1 ? s.at(0).unicode() : char16_t(0xFFFD);
        }
        return t;
    }();
    return table;
}

} // namespace

const char* morseCodeForByte(unsigned char byte) {
    return byteTable()[byte];
}

QString buildCwCode(const QString& text, QString& cwchar) {
    // Stateless: a lone surrogate must not be held back and merged into the next character.
    QStringEncoder enc("windows-1251", QStringConverter::Flag::Stateless);
    const auto& decoded = decodedBytes();
    QString cwcode;
    cwcode.reserve(text.size() * 6);
    for (const QChar ch : text) {
        const QByteArray bytes = enc.encode(QStringView(&ch, 1));
        if (bytes.size() == 1) {
            const auto byte = static_cast<unsigned char>(bytes.at(0));
            if (decoded[byte] == ch.unicode()) {
                if (const char* code = morseCodeForByte(byte)) cwchar = QLatin1String(code);
            }
        }
        cwcode += cwchar;
        cwcode += QLatin1Char('0');
    }
    return cwcode;
}

} // namespace hfc
