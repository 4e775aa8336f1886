#pragma once
// Helpers for the fixed-column lines of the report files.
#include <QString>

namespace hfc {

// The report column rule: the value, then a run of `blanks` blanks, then the leftmost `keep`
// characters. A long value is cut; a run shorter than `keep` can leave the column narrower.
QString padCut(const QString& value, int blanks, int keep);

// Same run as the kept width: exactly `width` characters.
inline QString padCut(const QString& value, int width) {
    return padCut(value, width, width);
}

// Numeric value of the leading number of a text, as the operator's tools read typed numbers:
// leading blanks skipped, optional sign, digits and a decimal point; no number gives 0.
double leadingNumber(const QString& text);

} // namespace hfc
