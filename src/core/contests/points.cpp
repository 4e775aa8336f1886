#include "contests/points.h"

#include "contests/groups.h"
#include "contests/pointsrules.h"
#include "country/russia.h"

#include <QHash>

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

namespace {

using namespace contests::rules;

bool prefIs(const QsoFacts& q, const char* pref) {
    return q.pref == QLatin1String(pref);
}

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

// The newer tables give nothing on the satellite "band", which no sponsor scores.
template <PointsRule Rule> PointsResult onHf(const QsoFacts& q) {
    if (q.band == QLatin1String("sat")) return points(0);
    return Rule(q);
}

// The contests in the order the points chain tests them ("kcj" is tested first and its branch
// is the last; in a table the order no longer decides anything, but it is kept for reading).
// "raem" scores through raemscore and "uba" through eucountry; "sac" and "iota" come last.
struct Entry {
    const char* code;
    PointsRule rule;
};
constexpr Entry chain[] = {
    {"kcj", kcj},
    {"vkzl", onHf<vkzl>},
    {"ari", onHf<ari>},
    {"cqww", cqww},
    {"aa", onHf<aa>},
    {"bal", bal},
    {"cqm", onHf<cqm>},
    {"cro", onHf<cro>},
    {"ea", onHf<ea>},
    {"ES", onHf<es>},
    {"euhf", onHf<euhf>},
    {"fd", onHf<fd>},
    {"HA", onHf<ha>},
    {"iaru", onHf<iaru>},
    {"jid", onHf<jid>},
    {"lzd", lzd},
    {"lzo", lzo},
    {"marc", onePoint},
    {"ok", onHf<ok>},
    {"pacc", pacc},
    {"rudx", onHf<rudx>},
    {"rsgb", onHf<rsgb>},
    {"ref", onHf<refToec>},
    {"toec", onHf<refToec>},
    {"sp", sp},
    {"ukr", onHf<ukr>},
    {"wae", onHf<wae>},
    {"wag", wag},
    {"wpx", onHf<wpx>},
    {"wwg", onHf<wwg>},
    {"yo", onHf<yo>},
    {"yu", yu},
    {"agcw", onePoint},
    {"cq160", onHf<cq160>},
    {"hol", hol},
    {"hel", hel},
    {"tops", onHf<tops>},
    {"chemp", onHf<chemp>},
    {"arrl10", onHf<arrl10>},
    {"sac", onHf<sac>},
    {"iota", onHf<iota>},
};

} // namespace

PointsRule pointsRule(const QString& contest) {
    static const QHash<QString, PointsRule> table = [] {
        QHash<QString, PointsRule> t;
        for (const Entry& e : chain) t.insert(QString::fromLatin1(e.code), e.rule);
        return t;
    }();
    return table.value(contest, nullptr);
}

} // namespace hfc
