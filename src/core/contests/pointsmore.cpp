// Points that read more than the two stations: bonuses from the exchange or the call, earlier
// QSOs of the log, the distance between locators, the championship's zone pairs.
#include "contests/groups.h"
#include "contests/locator.h"
#include "contests/pointsrules.h"

#include <QRegularExpression>
#include <algorithm>
#include <cmath>

namespace hfc::contests::rules {

namespace {

// The letters that end an exchange ("579AB" -> "AB"); "" when it ends in none.
QString trailingLetters(const QString& ex) {
    qsizetype i = ex.size();
    while (i > 0 && ex[i - 1] >= QLatin1Char('A') && ex[i - 1] <= QLatin1Char('Z')) --i;
    return ex.mid(i);
}

} // namespace

PointsResult rsgb(const QsoFacts& q) {
    PointsResult r = points(is(q.band, "1,8") ? 2 : 0);
    if (!q.log) return r;
    // 5 bonus points for the first QSO with each UK district and each country beyond the UK
    bool first = false;
    if (is(q.band, "1,8")) {
        if (inGroup(q.pref, Group::UK)) {
            const QString district = trailingLetters(q.exchange.toUpper());
            first = !district.isEmpty() && !q.log->districtWorked(district);
        } else {
            first = !q.strana.isEmpty() && !q.log->countryWorked(q.strana);
        }
    }
    r.points2 = QString::number(first ? 5 : 0);
    return r;
}

PointsResult wwg(const QsoFacts& q) {
    const auto km = squareDistanceKm(q.myexch.trimmed(), q.exchange.trimmed());
    if (!km) return points(0);
    // one point per started 500 km, at least one; the low bands count double and fourfold
    const int base = std::max(1, int(std::ceil(*km / 500.0)));
    const int factor = is(q.band, "1,8") ? 4 : is(q.band, "3,5") ? 2 : 1;
    return points(base * factor);
}

PointsResult tops(const QsoFacts& q) {
    if (!is(q.band, "3,5")) return points(0);
    int n;
    if (isMaritime(q.call)) {
        n = 6;
    } else {
        // In the large countries each call area counts as a country of its own.
        bool same = sameCountry(q);
        if (same && (is(q.pref, "JA") || is(q.pref, "PY") || is(q.pref, "VE") || is(q.pref, "VK") ||
                     is(q.pref, "K") || inGroup(q.pref, Group::Russia)))
            same = areaDigit(q.prf) == areaDigit(q.ownPrf);
        n = same ? 1 : sameKont(q) ? 2 : 6;
    }
    static const QRegularExpression member(QStringLiteral("^[0-9]{1,4}/[0-9]{1,5}$"));
    if (member.match(q.exchange.trimmed()).hasMatch()) n += 2;
    if (is(q.call, "GB6AQ")) n += 10;
    return points(n);
}

PointsResult chemp(const QsoFacts& q) {
    PointsResult r;
    const auto zone = [](const QString& s) -> int {
        return s.size() >= 1 && s[0] >= QLatin1Char('1') && s[0] <= QLatin1Char('7')
                   ? s[0].digitValue()
                   : 0;
    };
    const bool russia = inGroup(q.pref, Group::Russia);
    // Points by the distance of the two championship zones. The own zone exists only as the
    // first character of the sent report (the operator types it there); 1 until typed.
    static constexpr int byDistance[] = {11, 12, 13, 15, 19, 23, 25};
    const int own = zone(q.sentReport) ? zone(q.sentReport) : 1;
    const int theirs = q.report.size() == 1 ? zone(q.report) : 0;
    r.points = QString::number(russia && theirs ? byDistance[std::abs(own - theirs)] : 0);
    // "Корр.": the first QSO in the clock hour with a correspondent of this zone
    if (q.log)
        r.points2 = QString::number(
            russia && theirs && !q.log->reportInHour(q.report, q.time.left(2)) ? 1 : 0);
    return r;
}

PointsResult iota(const QsoFacts& q) {
    if (is(q.band, "1,8")) return points(0);
    static const QRegularExpression island(
        QStringLiteral("^[0-9]{1,4}(AF|AN|AS|EU|NA|OC|SA)[0-9]{3}$"));
    return points(island.match(q.exchange.trimmed().toUpper()).hasMatch() ? 15 : 2);
}

} // namespace hfc::contests::rules
