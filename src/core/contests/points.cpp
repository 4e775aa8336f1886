#include "contests/points.h"

#include "contests/contestdef.h"
#include "contests/groups.h"
#include "contests/pointsrules.h"
#include "country/russia.h"

namespace hfc {

namespace contests::rules {

PointsResult points(int n) {
    PointsResult r;
    r.points = QString::number(n);
    return r;
}

bool is(const QString& s, const char* v) {
    return s == QLatin1String(v);
}

bool sameCountry(const QsoFacts& q) {
    return q.pref == q.ownPref;
}

bool sameKont(const QsoFacts& q) {
    return q.kont == q.ownKont;
}

} // namespace contests::rules

namespace contests::rules {

namespace {

bool prefIs(const QsoFacts& q, const char* pref) {
    return q.pref == QLatin1String(pref);
}

} // namespace

// The branches below up to hel are the program's long-standing rules and stay as they are,
// whatever the sponsors publish now; where such a branch leaves some stations open, the rest of
// the rule follows the sponsor.

PointsResult kcj(const QsoFacts& q) {
    return prefIs(q, "JA") ? points(1) : PointsResult{};
}

PointsResult cqww(const QsoFacts& q) {
    PointsResult r;
    r.points = eu13Points(q.kont);
    // Russian stations go on: none for the own country, else by the own continent
    if (prefIs(q, "UA"))
        r.points = QString::number(is(q.ownPref, "UA") ? 0 : is(q.ownKont, "EU") ? 1 : 3);
    return r;
}

PointsResult bal(const QsoFacts& q) {
    return prefIs(q, "LY") || prefIs(q, "YL") || prefIs(q, "ES") ? points(10) : points(1);
}

PointsResult sp(const QsoFacts& q) {
    if (prefIs(q, "SP")) return points(3);
    // the world works Poland only; Polish stations score the world by continent
    if (!is(q.ownPref, "SP")) return points(0);
    return points(sameKont(q) ? 1 : 3);
}

PointsResult pacc(const QsoFacts& q) {
    if (prefIs(q, "PA")) return points(1);
    PointsResult r = points(0);
    r.clearMult = true;
    r.clearMult2 = true; // nor is their serial a province
    return r;
}

PointsResult onePoint(const QsoFacts&) {
    return points(1);
}

PointsResult lzd(const QsoFacts& q) {
    if (prefIs(q, "LZ")) return points(6);
    PointsResult r;
    r.points = eu13Points(q.kont);
    return r;
}

PointsResult lzo(const QsoFacts& q) {
    return prefIs(q, "UA") ? points(1) : points(2);
}

PointsResult wag(const QsoFacts& q) {
    if (prefIs(q, "DL")) return points(3);
    PointsResult r = points(0);
    r.clearMult = true;
    return r;
}

PointsResult hol(const QsoFacts& q) {
    return contests::isLowBand(q.band) ? points(2) : points(1);
}

PointsResult hel(const QsoFacts& q) {
    return prefIs(q, "HB") ? points(3) : points(0);
}

PointsResult yu(const QsoFacts& q) {
    // as eucountry: only YU stations count; a YU entrant scores its own country 1
    if (!prefIs(q, "YU")) {
        PointsResult r = points(0);
        r.clearMult = true;
        return r;
    }
    return points(is(q.ownPref, "YU") ? 1 : 10);
}

} // namespace contests::rules

PointsRule pointsRule(const QString& contest) {
    return contests::def(contest).points;
}

} // namespace hfc
