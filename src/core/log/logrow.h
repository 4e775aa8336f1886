#pragma once
// One tbllog row as the reports read it: every column as stored text.
#include <QString>

namespace hfc {

struct LogRow {
    QString ccall, ddate, ttime, bband, mode;
    QString rsts, rstr, rsts1, rsts2, rstr1, rstr2;
    QString mult, ps, point, point2;
    QString contr, prf, qth, ps1, ps2;
    QString freq; // kHz as the radio gave it ("21025.0"); empty without a radio
};

} // namespace hfc
