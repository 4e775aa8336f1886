#pragma once
// The points rules of the contests, one function each (several contests share one); each
// contest's row in contestdef.cpp names its rule.
#include "contests/points.h"

namespace hfc::contests::rules {

PointsResult points(int n);
bool is(const QString& s, const char* v);
bool sameCountry(const QsoFacts& q); // CALL = OWN
bool sameKont(const QsoFacts& q);    // K = OWNK

// DX contests: continent and country tables (pointsdx.cpp)
PointsResult vkzl(const QsoFacts& q);
PointsResult ari(const QsoFacts& q);
PointsResult aa(const QsoFacts& q);
PointsResult cqm(const QsoFacts& q);
PointsResult cro(const QsoFacts& q);
PointsResult ea(const QsoFacts& q);
PointsResult es(const QsoFacts& q);
PointsResult euhf(const QsoFacts& q);
PointsResult fd(const QsoFacts& q);
PointsResult ha(const QsoFacts& q);
PointsResult iaru(const QsoFacts& q);
PointsResult jid(const QsoFacts& q);
PointsResult ok(const QsoFacts& q);
PointsResult rudx(const QsoFacts& q);
PointsResult refToec(const QsoFacts& q);
PointsResult ukr(const QsoFacts& q);
PointsResult wae(const QsoFacts& q);
PointsResult wpx(const QsoFacts& q);
PointsResult yo(const QsoFacts& q);
PointsResult cq160(const QsoFacts& q);
PointsResult arrl10(const QsoFacts& q);
PointsResult sac(const QsoFacts& q);

// Rules that read more than the two stations: bonuses, the log, distances (pointsmore.cpp)
PointsResult rsgb(const QsoFacts& q);
PointsResult wwg(const QsoFacts& q);
PointsResult tops(const QsoFacts& q);
PointsResult chemp(const QsoFacts& q);
PointsResult iota(const QsoFacts& q);

// The program's long-standing rules (points.cpp)
PointsResult kcj(const QsoFacts& q);
PointsResult cqww(const QsoFacts& q);
PointsResult bal(const QsoFacts& q);
PointsResult sp(const QsoFacts& q);
PointsResult pacc(const QsoFacts& q);
PointsResult onePoint(const QsoFacts& q);
PointsResult lzd(const QsoFacts& q);
PointsResult lzo(const QsoFacts& q);
PointsResult wag(const QsoFacts& q);
PointsResult hol(const QsoFacts& q);
PointsResult hel(const QsoFacts& q);
PointsResult yu(const QsoFacts& q);

// The newer tables give nothing on the satellite "band", which no sponsor scores.
template <PointsRule Rule> PointsResult onHf(const QsoFacts& q) {
    if (q.band == QLatin1String("sat")) return points(0);
    return Rule(q);
}

} // namespace hfc::contests::rules
