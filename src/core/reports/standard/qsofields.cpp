#include "reports/standard/qsofields.h"
#include "data/schema.h"
#include "log/band.h"
#include "text/dates.h"
#include "text/translit.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace hfc {

namespace {

// One of the six HF bands of the band selector ("sat" has no frequency).
const BandInfo* contestBand(const QString& bband) {
    const std::optional<Band> b = bandFromText(bband);
    return b && *b != Band::Sat ? &bandInfo(*b) : nullptr;
}

// ADIF band limits in kHz for the bands a band text typed by hand may land in.
struct AdifRange {
    int lowKhz, highKhz;
    const char* name;
};

constexpr AdifRange kAdifRanges[] = {
    {1800, 2000, "160m"},    {3500, 4000, "80m"},   {5060, 5450, "60m"},   {7000, 7300, "40m"},
    {10100, 10150, "30m"},   {14000, 14350, "20m"}, {18068, 18168, "17m"}, {21000, 21450, "15m"},
    {24890, 24990, "12m"},   {28000, 29700, "10m"}, {50000, 54000, "6m"},  {144000, 148000, "2m"},
    {420000, 450000, "70cm"}};

// Number of characters of a text made of digits only, else 0.
int digitCount(const QString& report) {
    const QString t = report.trimmed();
    for (const QChar c : t)
        if (!c.isDigit()) return 0;
    return int(t.size());
}

} // namespace

bool isLoggedQso(const LogRow& r) {
    return !r.ccall.isEmpty() && r.ccall != kPlaceholderCall;
}

QsoMode qsoMode(const LogRow& r) {
    if (r.ps1 == QLatin1String("CW")) return QsoMode::Cw;
    if (r.ps1 == QLatin1String("SSB")) return QsoMode::Ssb;
    for (const QString* report : {&r.rsts, &r.rstr, &r.rsts1, &r.rstr1}) {
        const int digits = digitCount(*report);
        if (digits == 3) return QsoMode::Cw;
        if (digits == 2) return QsoMode::Ssb;
    }
    return QsoMode::Cw;
}

bool isContestBand(const QString& bband) {
    return contestBand(bband) != nullptr;
}

int bandKhz(const QString& bband) {
    if (const BandInfo* b = contestBand(bband)) return b->lowKhz;
    QString t = bband.trimmed();
    t.replace(QLatin1Char(','), QLatin1Char('.'));
    bool ok = false;
    const double mhz = t.toDouble(&ok);
    if (!ok || mhz <= 0 || mhz > 1e6) return 0;
    return int(std::lround(mhz * 1000));
}

double qsoKhz(const LogRow& r) {
    const BandInfo* band = contestBand(r.bband);
    bool ok = false;
    const double khz = r.freq.trimmed().toDouble(&ok);
    if (!band || !ok || bandOfKhz(khz) != band->band) return 0;
    return khz;
}

QString adifBand(const QString& bband) {
    if (const BandInfo* b = contestBand(bband)) return QLatin1String(b->adif);
    const int khz = bandKhz(bband);
    for (const AdifRange& r : kAdifRanges)
        if (khz >= r.lowKhz && khz <= r.highKhz) return QLatin1String(r.name);
    return {};
}

QString cabrilloBandCategory(const QString& bband) {
    const BandInfo* b = contestBand(bband);
    return b ? QLatin1String(b->cabrillo) : QString();
}

QString asciiText(const QString& text) {
    return toAsciiLatin(text).simplified();
}

QString asciiNoBlanks(const QString& text) {
    return asciiText(text).remove(QLatin1Char(' '));
}

QString asciiCall(const QString& text) {
    return asciiNoBlanks(text).toUpper();
}

QString hhmmOf(const QString& ttime) {
    const QString t = ttime.trimmed();
    const QString hhmm = t.contains(QLatin1Char(':')) ? formatTtimeHHMM(t) : t;
    if (hhmm.size() != 4 || digitCount(hhmm) != 4) return {};
    if (hhmm.left(2).toInt() > 23 || hhmm.mid(2).toInt() > 59) return {};
    return hhmm;
}

QDateTime qsoDateTime(const LogRow& r) {
    const QDate date = dateFromDdate(r.ddate);
    const QString hhmm = hhmmOf(r.ttime);
    if (!date.isValid() || hhmm.isEmpty()) return {};
    return QDateTime(date, QTime(hhmm.left(2).toInt(), hhmm.mid(2).toInt()), Qt::UTC);
}

QList<LogRow> inTimeOrder(const QList<LogRow>& rows) {
    // Each row's time is worked out once, not at every comparison of the sort.
    std::vector<std::pair<qint64, qsizetype>> keys;
    keys.reserve(size_t(rows.size()));
    for (qsizetype i = 0; i < rows.size(); ++i) {
        const QDateTime at = qsoDateTime(rows[i]);
        keys.emplace_back(at.isValid() ? at.toSecsSinceEpoch() : std::numeric_limits<qint64>::max(),
                          i);
    }
    std::stable_sort(keys.begin(), keys.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    QList<LogRow> sorted;
    sorted.reserve(rows.size());
    for (const auto& k : keys) sorted.append(rows[k.second]);
    return sorted;
}

} // namespace hfc
