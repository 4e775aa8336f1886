#pragma once
// The contest hour by hour: QSOs per clock hour and band, the figures of the rate chart and of
// the band-by-hour table of the report window.
#include "log/logrow.h"

#include <QList>
#include <QStringList>
#include <array>

namespace hfc {

struct HourRow {
    QString hour;                 // "30.11.02 12" : the date and the clock hour as logged
    std::array<int, 7> perBand{}; // 1,8 3,5 7 14 21 28 sat
    int total = 0;
};

// The bands in the order of perBand.
const QStringList& hourlyBands();

// One row per clock hour with QSOs, in time order, and the quiet hours between two of them less
// than a day apart; placeholders and rows without a readable date and time are left out.
QList<HourRow> qsosByHour(const QList<LogRow>& rows);

} // namespace hfc
