#include "text/codepage.h"

#include <QStringDecoder>
#include <QStringEncoder>

#include <array>
#include <memory>

namespace hfc {

namespace {

constexpr auto kWin1251 = "windows-1251";
constexpr auto kCp866 = "IBM866";

std::unique_ptr<QStringEncoder> freshEncoder(const char* name) {
    return std::make_unique<QStringEncoder>(name, QStringConverter::Flag::Stateless);
}

// Length in UTF-16 units of the code point starting at i (a lone surrogate counts as one).
qsizetype codePointLength(QStringView s, qsizetype i) {
    return (s[i].isHighSurrogate() && i + 1 < s.size() && s[i + 1].isLowSurrogate()) ? 2 : 1;
}

// The converter substitutes its own byte (0x1A for 1251, 0x7F for 866) for characters it cannot
// map, and those bytes are legal text too, so the error flag decides and the bad character is
// written as "?". An encoder keeps its error flag, so a new one is taken after each failure.
QByteArray encodeWithQuestionMarks(const char* codec, QStringView text) {
    {
        QStringEncoder whole(codec, QStringConverter::Flag::Stateless);
        QByteArray out = whole.encode(text);
        if (!whole.hasError()) return out;
    }
    QByteArray out;
    out.reserve(text.size());
    auto enc = freshEncoder(codec);
    for (qsizetype i = 0; i < text.size();) {
        const qsizetype n = codePointLength(text, i);
        const QByteArray piece = enc->encode(text.mid(i, n));
        if (enc->hasError() || piece.isEmpty()) {
            out += '?';
            enc = freshEncoder(codec);
        } else {
            out += piece;
        }
        i += n;
    }
    return out;
}

const std::array<char, 256>& win1251ToCp866Table() {
    static const std::array<char, 256> table = [] {
        std::array<char, 256> t{};
        for (int b = 0; b < 256; ++b) {
            t[b] = static_cast<char>(b);
            if (b < 0x80) continue;
            const char byte = static_cast<char>(b);
            QStringDecoder dec(kWin1251, QStringConverter::Flag::Stateless);
            const QString ch = dec.decode(QByteArray(&byte, 1));
            const QByteArray oem =
                dec.hasError() ? QByteArray() : encodeWithQuestionMarks(kCp866, ch);
            t[b] = oem.size() == 1 ? oem[0] : '?';
        }
        return t;
    }();
    return table;
}

} // namespace

QByteArray toWin1251(const QString& text) {
    return encodeWithQuestionMarks(kWin1251, text);
}

QString fromWin1251(const QByteArray& bytes) {
    QStringDecoder dec(kWin1251, QStringConverter::Flag::Stateless);
    return dec.decode(bytes);
}

QByteArray win1251ToCp866(const QByteArray& bytes) {
    const auto& table = win1251ToCp866Table();
    QByteArray out(bytes.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < bytes.size(); ++i) out[i] = table[static_cast<uchar>(bytes[i])];
    return out;
}

} // namespace hfc
