#pragma once
// The points rules of the contests, one function each; points.cpp puts them into the chain
// table. Shared by the rule files only.
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

} // namespace hfc::contests::rules
